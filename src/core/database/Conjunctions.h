#pragma once

#include "core/database/SelectOutline.h"
#include "core/database/TextEdits.h"

namespace Tesk::Database {

/// Edits that put brackets around groups of the conditions that WHERE joins by AND, where there are
/// many: SQLite refuses expressions that nest deeper than a thousand levels, and a long chain nests
/// one level a condition. A search text of many words makes such chains.
TextEdits ConjunctionEdits(const SelectOutline &select, const SqlTokens &tokens);

} // namespace Tesk::Database
