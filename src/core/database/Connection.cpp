#include "core/database/Connection.h"

#include "base/Errors.h"
#include "core/database/Collations.h"

#include <sqlite3.h>

#include <QUrl>

namespace Tesk::Database {

namespace {

Connection Open(const QByteArray &name, int flags)
{
    sqlite3 *handle = nullptr;
    const int status = sqlite3_open_v2(name.constData(), &handle, flags, nullptr);
    Connection connection(handle);
    if (status != SQLITE_OK)
        throw FileError(handle ? LastError(handle) : QStringLiteral("out of memory"));
    sqlite3_extended_result_codes(handle, 1);
    RegisterCollations(handle);
    return connection;
}

} // namespace

void CloseConnection::operator()(sqlite3 *connection) const
{
    sqlite3_close_v2(connection);
}

void FinalizeStatement::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

void FreeImage::operator()(unsigned char *bytes) const
{
    sqlite3_free(bytes);
}

Connection OpenFile(const QString &fileName, bool isImmutable)
{
    QByteArray address = QUrl::fromLocalFile(fileName).toEncoded();
    if (isImmutable)
        address += "?immutable=1";
    return Open(address, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_URI);
}

Connection OpenMemory()
{
    return Open(QByteArrayLiteral(":memory:"),
                SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX);
}

Connection OpenImage(Image image)
{
    Connection connection = OpenMemory();
    const auto size = static_cast<sqlite3_int64>(image.size);
    constexpr unsigned flags = SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_READONLY;
    // SQLite frees the bytes, also when it refuses them.
    if (sqlite3_deserialize(connection.get(), "main", image.bytes.release(), size, size, flags) !=
        SQLITE_OK)
        throw FileError(LastError(connection.get()));
    return connection;
}

Image ImageOf(sqlite3 *connection)
{
    sqlite3_int64 size = 0;
    unsigned char *bytes = sqlite3_serialize(connection, "main", &size, 0);
    if (!bytes)
        throw FileError(QStringLiteral("out of memory"));
    return {std::unique_ptr<unsigned char, FreeImage>(bytes), static_cast<std::size_t>(size)};
}

void Execute(sqlite3 *connection, const QByteArray &sql)
{
    if (sqlite3_exec(connection, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw FileError(LastError(connection));
}

Statement Prepare(sqlite3 *connection, const QByteArray &sql)
{
    sqlite3_stmt *statement = nullptr;
    const int status = sqlite3_prepare_v2(connection, sql.constData(), static_cast<int>(sql.size()),
                                          &statement, nullptr);
    if (status != SQLITE_OK)
        throw FileError(LastError(connection));
    return Statement(statement);
}

QString LastError(sqlite3 *connection)
{
    return QString::fromUtf8(sqlite3_errmsg(connection));
}

QByteArray Quoted(const QByteArray &name)
{
    QByteArray quoted = name;
    return '"' + quoted.replace('"', "\"\"") + '"';
}

} // namespace Tesk::Database
