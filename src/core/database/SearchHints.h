#pragma once

#include "core/database/SelectOutline.h"
#include "core/database/TextEdits.h"

namespace Tesk::Database {

/// Edits that tell SQLite's planner that few rows meet a condition `column LIKE 'text'` of WHERE:
/// without being told it expects nearly all of them, and asks for every product's texts instead of
/// reading through the texts once. The answer is the same.
TextEdits SearchHintEdits(const SelectOutline &select, const SqlTokens &tokens);

} // namespace Tesk::Database
