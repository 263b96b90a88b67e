#pragma once

#include "sqlite2/Schema.h"
#include "sqlite2/Value.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace Sqlite2 {

/// Reads a version 2 database file of either byte order, with an unfinished write's journal laid
/// over it. The file is read whole at once; nothing is ever written.
///
/// Whatever the bytes are, a call returns rows that stand in the file or throws Error: it neither
/// reads outside the file's bytes nor runs without end. A file is refused when any of its pages is
/// not in its place, so a damaged byte costs no row unnoticed: at most the text that holds it is
/// another. One thread at a time may use a reader.
class Reader final
{
public:
    /// Called for each record with its row id and its values (the row id column filled in).
    using RowHandler = std::function<void(std::int32_t rowId, const Row &row)>;

    /// Throws Error when the file cannot be read, is no version 2 file, or its schema is
    /// unreadable.
    explicit Reader(const std::filesystem::path &fileName);
    ~Reader();

    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    /// Whether the file begins like a version 2 file. False for a file that cannot be read.
    static bool IsVersion2File(const std::filesystem::path &fileName);

    /// The tables in the order of their creation, `sqlite_master` left out.
    const std::vector<Table> &Tables() const;

    /// The table of this name (ASCII case ignored), or nullptr.
    const Table *FindTable(const std::string &name) const;

    /// Hands the table's records to the handler in the order of their row ids.
    void ReadRows(const Table &table, const RowHandler &handler) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace Sqlite2
