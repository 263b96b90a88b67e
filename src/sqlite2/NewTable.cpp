#include "sqlite2/NewTable.h"

#include "sqlite2/AsciiText.h"
#include "sqlite2/Error.h"
#include "sqlite2/Record.h"
#include "sqlite2/RowKey.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace Sqlite2 {

namespace {

std::int32_t ToRowId(const std::string &text)
{
    std::int32_t rowId = 0;
    const char *const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, rowId);
    if (result.ec != std::errc() || result.ptr != end)
        throw Error("\"" + text + "\" is no whole number of 32 bits and so no row id");
    return rowId;
}

} // namespace

NewTable::NewTable(TableDeclaration tableDeclaration)
    : declaration(std::move(tableDeclaration))
{}

const Column &NewTable::ColumnAt(std::size_t position) const
{
    return declaration.table.columns.at(position);
}

std::vector<std::size_t> NewTable::Positions(const std::vector<std::string> &columns) const
{
    std::vector<std::size_t> positions;
    for (const std::string &name : columns) {
        const auto &all = declaration.table.columns;
        const auto found = std::ranges::find_if(
            all, [&](const Column &column) { return EqualIgnoringCase(column.name, name); });
        if (found == all.end())
            throw Error("the table " + Name() + " has no column " + name);
        positions.push_back(static_cast<std::size_t>(found - all.begin()));
    }
    return positions;
}

void NewTable::Insert(const Row &row)
{
    if (row.size() != declaration.table.columns.size())
        throw Error("the table " + Name() + " takes " +
                    std::to_string(declaration.table.columns.size()) + " values, not " +
                    std::to_string(row.size()));

    Row stored = row;
    Value rowIdText;
    if (declaration.table.rowIdColumn >= 0)
        rowIdText.swap(stored[static_cast<std::size_t>(declaration.table.rowIdColumn)]);
    const std::int32_t rowId = rowIdText ? ToRowId(*rowIdText) : NextRowId();
    if (records.contains(rowId))
        throw Error("the table " + Name() + " has a row " + std::to_string(rowId) + " already");
    records.emplace(rowId, EncodeRecord(stored));
}

std::int32_t NewTable::NextRowId() const
{
    if (records.empty())
        return 1;
    const std::int32_t largest = records.rbegin()->first;
    if (largest == std::numeric_limits<std::int32_t>::max())
        throw Error("the table " + Name() + " has no row id left behind the largest");
    return largest + 1;
}

void NewTable::ReadRow(std::int32_t rowId, const std::string &record, Row &row) const
{
    DecodeRecord(record, declaration.table.columns.size(), row);
    if (declaration.table.rowIdColumn >= 0)
        row[static_cast<std::size_t>(declaration.table.rowIdColumn)] = std::to_string(rowId);
}

void NewTable::Build(FileBuilder &file, std::uint32_t rootPage) const
{
    TreeBuilder tree(file, rootPage);
    for (const auto &[rowId, record] : records)
        tree.Add(EncodeRowKey(rowId), record);
    tree.Finish();
}

} // namespace Sqlite2
