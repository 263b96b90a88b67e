#include "sqlite2/NewIndex.h"

#include "sqlite2/Error.h"
#include "sqlite2/Format.h"
#include "sqlite2/IndexKey.h"
#include "sqlite2/RowKey.h"
#include "sqlite2/TreeBuilder.h"

#include <algorithm>
#include <string_view>

namespace Sqlite2 {

NewIndex::NewIndex(std::string indexName, const NewTable &indexedTable,
                   std::vector<std::size_t> columnPositions, bool mustBeUnique)
    : name(std::move(indexName))
    , table(indexedTable)
    , columns(std::move(columnPositions))
    , isUnique(mustBeUnique)
{}

void NewIndex::Build(FileBuilder &file, std::uint32_t rootPage) const
{
    const std::vector<Entry> entries = SortedEntries();
    if (isUnique)
        RequireUnique(entries);
    TreeBuilder tree(file, rootPage);
    for (const Entry &entry : entries)
        tree.Add(entry.key, {});
    tree.Finish();
}

std::vector<NewIndex::Entry> NewIndex::SortedEntries() const
{
    std::vector<Entry> entries;
    entries.reserve(table.Records().size());
    Row row;
    for (const auto &[rowId, record] : table.Records()) {
        table.ReadRow(rowId, record, row);
        Entry entry;
        for (const std::size_t column : columns) {
            entry.key += EncodeIndexValue(row[column], table.ColumnAt(column).Class());
            entry.holdsNull = entry.holdsNull || !row[column];
        }
        entry.key += EncodeRowKey(rowId);
        entries.push_back(std::move(entry));
    }
    std::ranges::sort(entries, {}, &Entry::key);
    return entries;
}

void NewIndex::RequireUnique(const std::vector<Entry> &entries) const
{
    const auto columnKeys = [](const Entry &entry) {
        return std::string_view(entry.key).substr(0, entry.key.size() - Format::RowKeySize);
    };
    const auto equal = std::ranges::adjacent_find(entries, [&](const Entry &a, const Entry &b) {
        return !a.holdsNull && columnKeys(a) == columnKeys(b);
    });
    if (equal != entries.end())
        throw Error("two rows of the table " + table.Name() + " are equal in what the index " +
                    name + " keeps unique");
}

} // namespace Sqlite2
