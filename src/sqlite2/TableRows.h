#pragma once

#include "sqlite2/Schema.h"
#include "sqlite2/TreeWalk.h"
#include "sqlite2/Value.h"

namespace Sqlite2 {

/// Steps through a table's rows in the order of their row ids. Damage throws Error.
class TableRows final
{
public:
    TableRows(const PageFile &file, const Table &source);

    /// Moves to the next row; false behind the last.
    bool Next();

    std::int32_t RowId() const { return rowId; }
    /// The row's values, the row id column filled in; valid until the next call of Next().
    const Row &Values() const { return values; }

private:
    const Table &table;
    TreeWalk walk;
    std::int32_t rowId = 0;
    Row values;
};

} // namespace Sqlite2
