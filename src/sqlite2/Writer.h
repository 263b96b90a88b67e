#pragma once

#include "sqlite2/ByteOrder.h"
#include "sqlite2/Value.h"

#include <filesystem>
#include <memory>
#include <string>

namespace Sqlite2 {

/// Writes a new version 2 database file that the version 2 engine would accept. Everything is kept
/// in memory until Finish(), which writes the file whole through a temporary file beside it.
class Writer final
{
public:
    explicit Writer(ByteOrder byteOrder = ByteOrder::Little);
    ~Writer();

    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;

    /// Makes a table from its CREATE TABLE statement, with the indexes that its PRIMARY KEY and
    /// UNIQUE constraints imply. Other constraints are kept as text and not checked. Throws Error
    /// for a statement it cannot read or a name that is taken.
    void CreateTable(const std::string &sql);

    /// Makes an index from its CREATE INDEX statement over the rows added by Finish().
    void CreateIndex(const std::string &sql);

    /// Adds a row with one value a column, 8-bit text. The row id is the INTEGER PRIMARY KEY's
    /// value, or one more than the largest so far. Throws Error for a wrong count, a used id, or a
    /// text with a NUL in it.
    void InsertRow(const std::string &table, const Row &row);

    /// Writes the file, replacing one of that name. Throws Error when a unique index has two equal
    /// rows, when a journal stands beside the file, or when it cannot be written; the old file then
    /// stands as it was.
    void Finish(const std::filesystem::path &fileName);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace Sqlite2
