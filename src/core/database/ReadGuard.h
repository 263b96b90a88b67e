#pragma once

struct sqlite3;

namespace Tesk::Database {

class TableSchema;

/// Closes a connection to everything but reading the tables of `schema`, which must outlive the
/// connection's use. Statements carry text that the user typed, unescaped: whatever it says, there
/// is nothing to attach, to load, to write or to call but a few functions on texts and numbers.
void GuardConnection(sqlite3 *connection, const TableSchema &schema);

/// Ends the connection's running statement with an error after a number of steps that no search of
/// a catalogue needs. Lasts for the life of the object: one statement.
class StepLimit final
{
public:
    explicit StepLimit(sqlite3 *watched);
    ~StepLimit();

    StepLimit(const StepLimit &) = delete;
    StepLimit &operator=(const StepLimit &) = delete;

private:
    static int CountSteps(void *limit);

    sqlite3 *connection;
    int roundsLeft;
};

} // namespace Tesk::Database
