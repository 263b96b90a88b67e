#pragma once

#include "core/database/SqlTokens.h"

namespace Tesk::Database {

/// Whether the AND at `index` stands between the bounds of a BETWEEN and so joins no conditions:
/// what follows is the upper bound, which binds closer than any comparison behind it.
bool IsAndOfBetween(const SqlTokens &tokens, size_t index);

} // namespace Tesk::Database
