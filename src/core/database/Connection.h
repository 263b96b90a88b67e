#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace Tesk::Database {

struct CloseConnection
{
    void operator()(sqlite3 *connection) const;
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;

struct FinalizeStatement
{
    void operator()(sqlite3_stmt *statement) const;
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

struct FreeImage
{
    void operator()(unsigned char *bytes) const;
};

/// A whole database file in memory, allocated by SQLite.
struct Image
{
    std::unique_ptr<unsigned char, FreeImage> bytes;
    std::size_t size = 0;
};

// All of these throw FileError with SQLite's reason when they fail. A connection serves one thread
// at a time.

/// `isImmutable`: nothing changes the file while it is open, so it is neither locked nor watched.
Connection OpenFile(const QString &fileName, bool isImmutable);
Connection OpenMemory();
/// A read-only database on the image's bytes.
Connection OpenImage(Image image);
Image ImageOf(sqlite3 *connection);

void Execute(sqlite3 *connection, const QByteArray &sql);

/// The first statement of the text. Null for a text without one.
Statement Prepare(sqlite3 *connection, const QByteArray &sql);

QString LastError(sqlite3 *connection);

/// A name as SQL writes it, whatever characters it has.
QByteArray Quoted(const QByteArray &name);

} // namespace Tesk::Database
