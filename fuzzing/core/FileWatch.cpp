#include "core/FileWatch.h"

#include "support/Require.h"

#include <sqlite3.h>

namespace Tesk::Fuzzing {

namespace {

bool isForbidden = false;

sqlite3_vfs *System()
{
    static sqlite3_vfs *const system = sqlite3_vfs_find(nullptr);
    return system;
}

int Open(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    Require(!isForbidden || name == nullptr, "a search opens no file");
    return System()->xOpen(System(), name, file, flags, outFlags);
}

int Delete(sqlite3_vfs *, const char *name, int isSynchronous)
{
    Require(!isForbidden, "a search deletes no file");
    return System()->xDelete(System(), name, isSynchronous);
}

int Access(sqlite3_vfs *, const char *name, int flags, int *result)
{
    Require(!isForbidden, "a search asks for no file");
    return System()->xAccess(System(), name, flags, result);
}

void *OpenLibrary(sqlite3_vfs *, const char *)
{
    Require(false, "nothing loads a library");
    return nullptr;
}

} // namespace

void WatchFiles()
{
    static sqlite3_vfs watch = *System();
    watch.zName = "watch";
    watch.xOpen = Open;
    watch.xDelete = Delete;
    watch.xAccess = Access;
    watch.xDlOpen = OpenLibrary;
    Require(sqlite3_vfs_register(&watch, 1) == SQLITE_OK, "SQLite takes the watch");
}

void ForbidFiles()
{
    isForbidden = true;
}

} // namespace Tesk::Fuzzing
