#pragma once

#include "core/database/SelectOutline.h"
#include "core/database/TableSchema.h"
#include "core/database/TextEdits.h"

namespace Tesk::Database {

/// Edits that put the rows of a statement into the order of nested loops: rows that its own ORDER
/// BY leaves equal, or all without one, follow the row ids of its tables in the order of the FROM
/// clause. SQLite 3 may then run the loops in whatever order is quickest.
///
/// Grouped, DISTINCT and compound statements and those over sub-selects keep SQLite's order.
TextEdits RowOrderEdits(const SelectOutline &select, const SqlTokens &tokens,
                        const TableSchema &schema);

} // namespace Tesk::Database
