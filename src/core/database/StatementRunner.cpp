#include "core/database/StatementRunner.h"

#include "base/Errors.h"
#include "core/database/Connection.h"
#include "core/database/ReadGuard.h"
#include "core/database/StatementRewriter.h"

#include <sqlite3.h>

#include <new>
#include <utility>

namespace Tesk::Database {

namespace {

constexpr qint64 MostCells = 3'000'000;
constexpr qint64 MostBytes = 256 << 20;

QStringList NamesOf(sqlite3_stmt *statement, const std::optional<QStringList> &columnNames)
{
    const int count = sqlite3_column_count(statement);
    if (columnNames && columnNames->size() == count)
        return *columnNames;
    QStringList names;
    for (int column = 0; column < count; ++column)
        names.append(QString::fromUtf8(sqlite3_column_name(statement, column)));
    return names;
}

Statement PrepareEither(sqlite3 *connection, const RewrittenStatement &rewritten)
{
    try {
        return Prepare(connection, rewritten.sql);
    } catch (const FileError &) {
        return Prepare(connection, rewritten.original);
    }
}

/// Collects a statement's rows. Throws FileError when they become too many to hold.
class RowCollector final
{
public:
    RowCollector(sqlite3_stmt *source, const std::optional<QStringList> &columnNames)
        : statement(source)
        , names(NamesOf(source, columnNames))
    {}

    void AddRow();
    ResultTable Take() { return std::move(table); }

private:
    void AddCell(int column);

    sqlite3_stmt *statement;
    QStringList names;
    ResultTable table;
    qint64 cellCount = 0;
    qint64 byteCount = 0;
};

void RowCollector::AddCell(int column)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    if (text) {
        const int size = sqlite3_column_bytes(statement, column);
        byteCount += size;
        table.AddCell(QByteArrayView(text, size));
    } else if (sqlite3_column_type(statement, column) == SQLITE_NULL) {
        table.AddCell({});
    } else {
        throw std::bad_alloc();
    }
}

void RowCollector::AddRow()
{
    if (table.UpperRow() < 0)
        table = ResultTable(names);
    for (int column = 0; column < names.size(); ++column)
        AddCell(column);

    cellCount += names.size();
    if (cellCount > MostCells || byteCount > MostBytes)
        throw FileError(QStringLiteral("the result is too large"));
}

} // namespace

ResultTable RunStatement(sqlite3 *connection, const RewrittenStatement &rewritten)
{
    const StepLimit limit(connection);
    const Statement statement = PrepareEither(connection, rewritten);
    if (!statement)
        return {};
    if (sqlite3_stmt_isexplain(statement.get()) || !sqlite3_stmt_readonly(statement.get()))
        throw FileError(QStringLiteral("not a query"));

    RowCollector rows(statement.get(), rewritten.columnNames);
    int status = sqlite3_step(statement.get());
    for (; status == SQLITE_ROW; status = sqlite3_step(statement.get()))
        rows.AddRow();
    if (status == SQLITE_INTERRUPT)
        throw FileError(QStringLiteral("the statement takes too long"));
    if (status != SQLITE_DONE)
        throw FileError(LastError(connection));
    return rows.Take();
}

} // namespace Tesk::Database
