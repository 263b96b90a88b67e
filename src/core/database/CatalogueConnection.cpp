#include "core/database/CatalogueConnection.h"

#include "base/Errors.h"
#include "core/database/CatalogueCache.h"
#include "core/database/CatalogueImport.h"
#include "core/database/Log.h"
#include "core/database/SourceIdentity.h"
#include "sqlite2/Reader.h"

#include <QFile>

#include <filesystem>
#include <utility>

namespace Tesk::Database {

namespace {

constexpr QByteArrayView Version3Start("SQLite format 3\0", 16);
constexpr qsizetype WriteVersionOffset = 18;
constexpr char WriteAheadVersion = 2;

/// The first bytes of the file, up to what both versions are known by.
QByteArray StartOf(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(file.errorString());
    return file.read(WriteVersionOffset + 1);
}

/// SQLite makes files beside a database in write-ahead mode even to read it, which the catalogue's
/// folder may not allow. Without a log beside it, the file is all there is.
bool NeedsNoLog(const QString &fileName, const QByteArray &start)
{
    return start.at(WriteVersionOffset) == WriteAheadVersion &&
           !QFile::exists(fileName + QStringLiteral("-wal"));
}

/// Opens the kept import; null when SQLite refuses it all the same.
Connection OpenKept(const QString &fileName)
{
    if (fileName.isEmpty())
        return {};
    try {
        Connection connection = OpenFile(fileName, true);
        Execute(connection.get(), "SELECT count(*) FROM sqlite_master");
        return connection;
    } catch (const FileError &error) {
        qCWarning(databaseLog).noquote() << QStringLiteral("%1: %2").arg(fileName, error.Message());
        return {};
    }
}

Connection OpenVersion2(const QString &fileName, const CatalogueCache &cache)
{
    const QByteArray stamps = cache.StampsOf(fileName);
    if (Connection kept = OpenKept(cache.FindChecked(fileName, stamps)))
        return kept;
    const QByteArray identity = IdentityOf(fileName);
    if (Connection kept = OpenKept(cache.Find(fileName, identity))) {
        cache.NoteChecked(fileName, stamps);
        return kept;
    }

    Image image = ImportVersion2File(fileName);
    const QByteArrayView bytes(image.bytes.get(), static_cast<qsizetype>(image.size));
    // A file that changed while it was read is not what its identity says.
    if (IdentityOf(fileName) == identity) {
        if (Connection kept = OpenKept(cache.Store(fileName, identity, bytes)))
            return kept;
    }
    return OpenImage(std::move(image));
}

} // namespace

CatalogueConnection OpenCatalogue(const QString &fileName, const QString &cacheFolder)
{
    if (Sqlite2::Reader::IsVersion2File(std::filesystem::path(fileName.toStdU16String())))
        return {OpenVersion2(fileName, CatalogueCache(cacheFolder)), FileVersion::Two};

    const QByteArray start = StartOf(fileName);
    if (start.size() <= WriteVersionOffset || !start.startsWith(Version3Start))
        throw FileError(QStringLiteral("the file is no SQLite database of version 2 or 3"));
    return {OpenFile(fileName, NeedsNoLog(fileName, start)), FileVersion::Three};
}

} // namespace Tesk::Database
