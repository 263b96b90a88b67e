#pragma once

#include "core/database/SelectOutline.h"
#include "core/database/TableSchema.h"
#include "core/database/TextEdits.h"

namespace Tesk::Database {

/// Edits that make comparisons follow the version 2 rule: as texts only where both sides are text,
/// else by value. SQLite 3 takes the rule from one side alone, so a comparison of a text column
/// with a number or with a numeric column is told to go by value, and a number is compared as it
/// is spelled, not as SQLite 3 would spell it.
///
/// What equals a column of row ids is also compared with SQLite's own row id, which finds the row
/// without an index; the answer is the same.
///
/// Comparisons inside sub-selects and of computed values are left alone.
TextEdits ComparisonEdits(const SelectOutline &select, const SqlTokens &tokens,
                          const TableSchema &schema);

} // namespace Tesk::Database
