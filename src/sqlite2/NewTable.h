#pragma once

#include "sqlite2/Statements.h"
#include "sqlite2/TreeBuilder.h"
#include "sqlite2/Value.h"

#include <cstdint>
#include <map>
#include <string>

namespace Sqlite2 {

/// A table that is being written: its declaration and the rows added so far.
class NewTable final
{
public:
    explicit NewTable(TableDeclaration tableDeclaration);

    const std::string &Name() const { return declaration.table.name; }
    const Column &ColumnAt(std::size_t position) const;
    const std::vector<std::vector<std::size_t>> &UniqueKeys() const
    {
        return declaration.uniqueKeys;
    }

    /// The positions of these columns. Throws Error for one that the table lacks.
    std::vector<std::size_t> Positions(const std::vector<std::string> &columns) const;

    /// Throws Error for a wrong number of values, a row id that is none, or one that is taken.
    void Insert(const Row &row);

    const std::map<std::int32_t, std::string> &Records() const { return records; }

    /// The values of a stored record, its row id filled in.
    void ReadRow(std::int32_t rowId, const std::string &record, Row &row) const;

    void Build(FileBuilder &file, std::uint32_t rootPage) const;

private:
    std::int32_t NextRowId() const;

    TableDeclaration declaration;
    /// Encoded records by row id, whose order is the order of the file.
    std::map<std::int32_t, std::string> records;
};

} // namespace Sqlite2
