#include "sqlite2/Error.h"
#include "sqlite2/Statements.h"
#include "support/Require.h"

#include <algorithm>
#include <cstdint>

using namespace Sqlite2;
using Tesk::Fuzzing::Require;

namespace {

std::string Quoted(std::string_view name)
{
    std::string quoted(1, '"');
    for (const char c : name)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

std::string ColumnList(const std::vector<std::string> &columns)
{
    std::string list;
    for (const std::string &column : columns)
        list += (list.empty() ? "" : ", ") + Quoted(column);
    return '(' + list + ')';
}

/// The statement that declares just this.
std::string StatementOf(const TableDeclaration &declaration)
{
    const std::vector<Column> &columns = declaration.table.columns;
    std::string items;
    for (const Column &column : columns)
        items += (items.empty() ? "" : ", ") + Quoted(column.name) + ' ' + column.declaredType;
    if (declaration.table.rowIdColumn >= 0)
        items +=
            ", PRIMARY KEY " +
            ColumnList({columns.at(static_cast<std::size_t>(declaration.table.rowIdColumn)).name});
    for (const std::vector<std::size_t> &key : declaration.uniqueKeys) {
        std::vector<std::string> names;
        names.reserve(key.size());
        for (const std::size_t position : key)
            names.push_back(columns.at(position).name);
        items += ", UNIQUE " + ColumnList(names);
    }
    return "CREATE TABLE " + Quoted(declaration.table.name) + " (" + items + ')';
}

std::string StatementOf(const IndexDeclaration &declaration)
{
    return std::string("CREATE ") + (declaration.index.isUnique ? "UNIQUE " : "") + "INDEX " +
           Quoted(declaration.index.name) + " ON " + Quoted(declaration.tableName) + ' ' +
           ColumnList(declaration.index.columns);
}

template <typename Declaration>
Declaration ReadAgain(Declaration (*parse)(std::string_view), const Declaration &declaration)
{
    try {
        return parse(StatementOf(declaration));
    } catch (const Error &) {
        Require(false, "a plain statement can be read");
        throw;
    }
}

void CheckTable(std::string_view sql)
{
    const TableDeclaration declaration = ParseCreateTable(sql);
    Require(!declaration.table.columns.empty(), "a table has a column");
    const TableDeclaration again = ReadAgain(&ParseCreateTable, declaration);
    Require(again.table.name == declaration.table.name, "the name is read as it is written");
    Require(again.table.rowIdColumn == declaration.table.rowIdColumn, "the row id stays");
    Require(again.uniqueKeys == declaration.uniqueKeys, "the keys stay");
    const auto isSame = [](const Column &left, const Column &right) {
        return left.name == right.name && left.declaredType == right.declaredType;
    };
    Require(std::equal(again.table.columns.begin(), again.table.columns.end(),
                       declaration.table.columns.begin(), declaration.table.columns.end(), isSame),
            "the columns are read as they are written");
}

void CheckIndex(std::string_view sql)
{
    const IndexDeclaration declaration = ParseCreateIndex(sql);
    Require(!declaration.index.columns.empty(), "an index has a column");
    const IndexDeclaration again = ReadAgain(&ParseCreateIndex, declaration);
    Require(again.index.name == declaration.index.name &&
                again.tableName == declaration.tableName &&
                again.index.columns == declaration.index.columns &&
                again.index.isUnique == declaration.index.isUnique,
            "an index is read as it is written");
}

} // namespace

/// Takes the input for a CREATE TABLE and for a CREATE INDEX statement. What they declare, written
/// as a plain statement, must declare the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string sql(data, data + size);
    for (const auto check : {CheckTable, CheckIndex}) {
        try {
            check(sql);
        } catch (const Error &) {
            continue;
        }
    }
    return 0;
}
