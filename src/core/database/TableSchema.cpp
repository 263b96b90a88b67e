#include "core/database/TableSchema.h"

#include "base/Errors.h"
#include "core/database/Collations.h"
#include "core/database/Connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace Tesk::Database {

namespace {

constexpr auto TablesSql =
    "SELECT name, type FROM sqlite_master"
    " WHERE type IN ('table', 'view') AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'";
constexpr auto ColumnsSql = "SELECT name FROM pragma_table_info(?) ORDER BY cid";

constexpr std::array RowIdNames{"rowid", "_rowid_", "oid"};

QByteArray TextAt(sqlite3_stmt *statement, int column)
{
    return reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
}

/// Whether there is another row. Throws FileError.
bool Step(sqlite3 *connection, sqlite3_stmt *statement)
{
    const int status = sqlite3_step(statement);
    if (status != SQLITE_ROW && status != SQLITE_DONE)
        throw FileError(LastError(connection));
    return status == SQLITE_ROW;
}

ColumnInfo InfoOf(sqlite3 *connection, const QByteArray &table, const QByteArray &column)
{
    const char *type = nullptr;
    const char *collation = nullptr;
    sqlite3_table_column_metadata(connection, "main", table.constData(), column.constData(), &type,
                                  &collation, nullptr, nullptr, nullptr);
    if (qstrcmp(collation, NumericCollation) == 0)
        return {column, ColumnClass::Numeric, qstrcmp(type, RowIdType) == 0};
    const bool isText = qstrcmp(collation, TextCollation) == 0;
    return {column, isText ? ColumnClass::Text : ColumnClass::Other};
}

QList<ColumnInfo> ColumnsOf(sqlite3 *connection, const QByteArray &table)
{
    const Statement statement = Prepare(connection, ColumnsSql);
    sqlite3_bind_text(statement.get(), 1, table.constData(), -1, SQLITE_STATIC);
    QList<ColumnInfo> columns;
    // A view whose tables are gone has no columns and is no reason to refuse the file.
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        columns.append(InfoOf(connection, table, TextAt(statement.get(), 0)));
    return columns;
}

} // namespace

const ColumnInfo *TableInfo::FindColumn(const QByteArray &columnName) const
{
    const auto column =
        std::find_if(columns.begin(), columns.end(), [&columnName](const ColumnInfo &candidate) {
            return qstricmp(candidate.name, columnName) == 0;
        });
    return column == columns.end() ? nullptr : &*column;
}

TableSchema::TableSchema(sqlite3 *connection)
{
    const Statement statement = Prepare(connection, TablesSql);
    while (Step(connection, statement.get())) {
        const QByteArray name = TextAt(statement.get(), 0);
        const bool isView = TextAt(statement.get(), 1) == "view";
        tables.insert(FoldedName(name), {name, ColumnsOf(connection, name), isView});
    }

    const auto isFree = [this](const char *name) {
        return std::none_of(tables.begin(), tables.end(), [name](const TableInfo &table) {
            return table.FindColumn(name) != nullptr;
        });
    };
    const auto free = std::find_if(RowIdNames.begin(), RowIdNames.end(), isFree);
    if (free != RowIdNames.end())
        rowIdName = *free;
}

const TableInfo *TableSchema::FindTable(const QByteArray &name) const
{
    const auto table = tables.constFind(FoldedName(name));
    return table == tables.constEnd() ? nullptr : &*table;
}

QByteArray FoldedName(const QByteArray &name)
{
    QByteArray folded = name;
    std::transform(folded.begin(), folded.end(), folded.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return folded;
}

} // namespace Tesk::Database
