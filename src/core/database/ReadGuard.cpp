#include "core/database/ReadGuard.h"

#include "core/database/TableSchema.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace Tesk::Database {

namespace {

constexpr std::array AllowedFunctions{"abs",    "avg",    "coalesce", "count",  "glob", "ifnull",
                                      "length", "like",   "lower",    "ltrim",  "max",  "min",
                                      "nullif", "round",  "rtrim",    "substr", "sum",  "total",
                                      "trim",   "typeof", "unlikely", "upper"};

// A search through a catalogue of 32,000 products in five languages takes about two million steps.
constexpr int StepsPerRound = 10'000;
constexpr int RoundCount = 2'000;

constexpr int LongestStatement = 4 << 20;
constexpr int LongestValue = 64 << 20;

bool IsAllowedFunction(const char *name)
{
    return std::any_of(AllowedFunctions.begin(), AllowedFunctions.end(),
                       [name](const char *allowed) { return qstricmp(name, allowed) == 0; });
}

bool IsCatalogueTable(const TableSchema &schema, const char *database, const char *table)
{
    return (!database || qstrcmp(database, "main") == 0) && schema.FindTable(table);
}

int Authorise(void *schema, int action, const char *first, const char *second, const char *database,
              const char *)
{
    bool isAllowed = false;
    if (action == SQLITE_SELECT)
        isAllowed = true;
    else if (action == SQLITE_READ)
        isAllowed = IsCatalogueTable(*static_cast<const TableSchema *>(schema), database, first);
    else if (action == SQLITE_FUNCTION)
        isAllowed = IsAllowedFunction(second);
    return isAllowed ? SQLITE_OK : SQLITE_DENY;
}

} // namespace

void GuardConnection(sqlite3 *connection, const TableSchema &schema)
{
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_limit(connection, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(connection, SQLITE_LIMIT_SQL_LENGTH, LongestStatement);
    sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, LongestValue);
    // SQLite only hands the pointer through; Authorise takes it as const again.
    sqlite3_set_authorizer(connection, &Authorise, const_cast<TableSchema *>(&schema));
}

StepLimit::StepLimit(sqlite3 *watched)
    : connection(watched)
    , roundsLeft(RoundCount)
{
    sqlite3_progress_handler(connection, StepsPerRound, &CountSteps, this);
}

StepLimit::~StepLimit()
{
    sqlite3_progress_handler(connection, 0, nullptr, nullptr);
}

int StepLimit::CountSteps(void *limit)
{
    return --static_cast<StepLimit *>(limit)->roundsLeft < 0 ? 1 : 0;
}

} // namespace Tesk::Database
