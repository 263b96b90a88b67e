#include "base/tests/SystemFaults.h"

#include <QFile>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tesk {

namespace {

SystemFaults *active = nullptr;

/// The system's own call of this name.
template <typename Function>
Function *Original(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

/// What makes a call fail, and with which error.
enum class Needs { Room, Rights, Disk };

int ErrorOf(Needs needs)
{
    if (active->FaultKind() == SystemFaults::Kind::DiskFull)
        return ENOSPC;
    return needs == Needs::Disk ? EIO : EACCES;
}

/// Whether the call is to fail; errno says why.
template <typename Target>
bool Fails(Target target, Needs needs)
{
    if (!active || !active->Concerns(target) ||
        active->Judge(needs == Needs::Room, false) == SystemFaults::Verdict::GoOn)
        return false;
    errno = ErrorOf(needs);
    return true;
}

bool IsForWriting(int flags)
{
    return (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
}

bool IsUnnamed(int flags)
{
    return (flags & O_TMPFILE) == O_TMPFILE;
}

int OpenFile(const char *path, int flags, mode_t mode)
{
    if (active && active->Concerns(path) && IsForWriting(flags)) {
        if (IsUnnamed(flags) && !active->HasUnnamedFiles()) {
            errno = EOPNOTSUPP;
            return -1;
        }
        const bool isNew = IsUnnamed(flags) || ((flags & O_CREAT) != 0 && access(path, F_OK) != 0);
        if (Fails(path, isNew ? Needs::Room : Needs::Rights))
            return -1;
    }
    return Original<int(const char *, int, ...)>("open64")(path, flags, mode);
}

/// The file whose bytes are known to be on the disk; −1 for none.
int cleanFile = -1;

ssize_t Write(int file, const void *bytes, size_t size)
{
    auto *const original = Original<ssize_t(int, const void *, size_t)>("write");
    cleanFile = -1;
    if (!active || !active->Concerns(file))
        return original(file, bytes, size);
    switch (active->Judge(true, true)) {
    case SystemFaults::Verdict::Fail:
        errno = ErrorOf(Needs::Disk);
        return -1;
    case SystemFaults::Verdict::WriteHalfAndEnd:
        original(file, bytes, size / 2);
        _exit(SystemFaults::CrashStatus);
    default:
        return original(file, bytes, size);
    }
}

/// A disk that refuses bytes loses them: what was not synchronised before is cut off.
int Synchronise(int file, const char *name)
{
    if (Fails(file, Needs::Disk)) {
        const int error = errno;
        struct stat status = {};
        if (file != cleanFile && fstat(file, &status) == 0)
            Original<int(int, off64_t)>("ftruncate64")(file, status.st_size / 2);
        errno = error;
        return -1;
    }
    cleanFile = file;
    return Original<int(int)>(name)(file);
}

} // namespace

SystemFaults::SystemFaults(const QString &folderName, Kind faultKind, int call, bool unnamedFiles)
    : folder(QFile::encodeName(folderName))
    , kind(faultKind)
    , faultyCall(call)
    , hasUnnamedFiles(unnamedFiles)
{
    active = this;
}

SystemFaults::~SystemFaults()
{
    active = nullptr;
}

SystemFaults::Verdict SystemFaults::Judge(bool needsRoom, bool isWrite)
{
    ++callCount;
    switch (kind) {
    case Kind::DiskFull:
        return callCount >= faultyCall && needsRoom ? Verdict::Fail : Verdict::GoOn;
    case Kind::Refused:
        return callCount == faultyCall ? Verdict::Fail : Verdict::GoOn;
    case Kind::Crash:
        break;
    }
    if (callCount != faultyCall)
        return Verdict::GoOn;
    if (!isWrite)
        _exit(CrashStatus);
    return Verdict::WriteHalfAndEnd;
}

bool SystemFaults::Concerns(const char *path) const
{
    return QByteArrayView(path).startsWith(folder);
}

bool SystemFaults::Concerns(int file) const
{
    char path[4096];
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(file);
    const ssize_t size = readlink(link.constData(), path, sizeof path);
    return size > 0 && QByteArrayView(path, size).startsWith(folder);
}

} // namespace Tesk

// The system's calls, which the program finds here before it finds them in the system's library.

using Tesk::Fails;
using Tesk::Needs;
using Tesk::Original;

extern "C" {

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const bool isMade = (flags & O_CREAT) != 0 || Tesk::IsUnnamed(flags);
    const mode_t mode = isMade ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return Tesk::OpenFile(path, flags, mode);
}

ssize_t write(int file, const void *bytes, size_t size)
{
    return Tesk::Write(file, bytes, size);
}

int fsync(int file)
{
    return Tesk::Synchronise(file, "fsync");
}

int fdatasync(int file)
{
    return Tesk::Synchronise(file, "fdatasync");
}

int fchmod(int file, mode_t mode) noexcept
{
    return Fails(file, Needs::Rights) ? -1 : Original<int(int, mode_t)>("fchmod")(file, mode);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return Fails(file, Needs::Room) ? -1 : Original<int(int, off64_t)>("ftruncate64")(file, size);
}

int linkat(int oldFolder, const char *oldPath, int newFolder, const char *newPath,
           int flags) noexcept
{
    if (Fails(newPath, Needs::Room))
        return -1;
    return Original<int(int, const char *, int, const char *, int)>("linkat")(
        oldFolder, oldPath, newFolder, newPath, flags);
}

int rename(const char *oldPath, const char *newPath) noexcept
{
    if (Fails(newPath, Needs::Rights))
        return -1;
    return Original<int(const char *, const char *)>("rename")(oldPath, newPath);
}

int unlink(const char *path) noexcept
{
    return Fails(path, Needs::Rights) ? -1 : Original<int(const char *)>("unlink")(path);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return Fails(path, Needs::Room) ? -1 : Original<int(const char *, mode_t)>("mkdir")(path, mode);
}
}
