#include "core/database/StatementRunner.h"

#include "base/Errors.h"
#include "core/database/Connection.h"
#include "core/database/ReadGuard.h"
#include "core/database/StatementRewriter.h"

#include <sqlite3.h>

#include <vector>

namespace Tesk::Database {

namespace {

constexpr qint64 MostCells = 5'000'000;

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

/// A null QString for NULL.
QString CellOf(sqlite3_stmt *statement, int column)
{
    if (sqlite3_column_type(statement, column) == SQLITE_NULL)
        return {};
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    const int size = sqlite3_column_bytes(statement, column);
    return size == 0 || !text ? QString(QLatin1String("")) : QString::fromUtf8(text, size);
}

Statement PrepareEither(sqlite3 *connection, const RewrittenStatement &rewritten)
{
    try {
        return Prepare(connection, rewritten.sql);
    } catch (const FileError &) {
        return Prepare(connection, rewritten.original);
    }
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

    ResultTable table;
    const int columnCount = sqlite3_column_count(statement.get());
    int status = sqlite3_step(statement.get());
    for (; status == SQLITE_ROW; status = sqlite3_step(statement.get())) {
        if (table.UpperRow() < 0)
            table = ResultTable(NamesOf(statement.get(), rewritten.columnNames));
        std::vector<QString> row;
        row.reserve(static_cast<size_t>(columnCount));
        for (int column = 0; column < columnCount; ++column)
            row.push_back(CellOf(statement.get(), column));
        table.AddRow(std::move(row));
        if (static_cast<qint64>(table.UpperRow()) * columnCount > MostCells)
            throw FileError(QStringLiteral("the result has too many rows"));
    }
    if (status == SQLITE_INTERRUPT)
        throw FileError(QStringLiteral("the statement takes too long"));
    if (status != SQLITE_DONE)
        throw FileError(LastError(connection));
    return table;
}

} // namespace Tesk::Database
