#pragma once

#include "sqlite2/FileBuilder.h"
#include "sqlite2/NewTable.h"

#include <string>
#include <vector>

namespace Sqlite2 {

/// An index that is being written: declared by a statement, or implied by a constraint.
class NewIndex final
{
public:
    NewIndex(std::string indexName, const NewTable &indexedTable,
             std::vector<std::size_t> columnPositions, bool mustBeUnique);

    const std::string &Name() const { return name; }

    /// Builds the index over the table's rows. Throws Error when it must be unique and is not; as
    /// in version 2, a NULL equals nothing.
    void Build(FileBuilder &file, std::uint32_t rootPage) const;

private:
    struct Entry
    {
        std::string key;
        bool holdsNull = false;
    };

    std::vector<Entry> SortedEntries() const;
    void RequireUnique(const std::vector<Entry> &entries) const;

    std::string name;
    const NewTable &table;
    std::vector<std::size_t> columns;
    bool isUnique;
};

} // namespace Sqlite2
