#pragma once

#include "core/ResultTable.h"

struct sqlite3;

namespace Tesk::Database {

struct RewrittenStatement;

/// Runs a statement and answers its rows, the empty table when there are none. Of several
/// statements in one text only the first runs. Throws FileError for a statement that fails, takes
/// too long or gives more rows than a program can show.
ResultTable RunStatement(sqlite3 *connection, const RewrittenStatement &rewritten);

} // namespace Tesk::Database
