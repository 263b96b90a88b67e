#include "core/database/ResultNames.h"

#include <algorithm>

namespace Tesk::Database {

namespace {

/// The expression as it is written; a column's name without quotes and without blanks around its
/// ".".
QByteArray WrittenName(TokenRange expression, const SqlTokens &tokens, const QByteArray &sql)
{
    const SqlToken &first = tokens[expression.begin];
    const SqlToken &last = tokens[expression.end - 1];
    const size_t count = expression.end - expression.begin;
    const bool isQualified = count == 3 && tokens[expression.begin + 1].IsSymbol(".");
    if (first.IsName() && last.IsName() && isQualified)
        return first.Name() + '.' + last.Name();
    if (first.IsName() && count == 1)
        return first.Name();
    return sql.sliced(first.begin, last.End() - first.begin);
}

bool IsStar(TokenRange expression, const SqlTokens &tokens)
{
    return !expression.IsEmpty() && tokens[expression.end - 1].IsSymbol("*") &&
           (expression.end - expression.begin == 1 || tokens[expression.end - 2].IsSymbol("."));
}

/// Collects the names; false from any of its methods when a `*` stands for unknown columns.
class NameCollector final
{
public:
    NameCollector(const SelectOutline &outline, const SqlTokens &statement,
                  const TableSchema &tables)
        : select(outline)
        , tokens(statement)
        , schema(tables)
    {}

    bool Add(const ResultColumn &column, const QByteArray &sql);

    QStringList names;

private:
    bool AddStar(TokenRange expression);
    bool AddTable(const FromItem *item);

    const SelectOutline &select;
    const SqlTokens &tokens;
    const TableSchema &schema;
};

bool NameCollector::Add(const ResultColumn &column, const QByteArray &sql)
{
    if (column.expression.IsEmpty())
        return false;
    if (column.alias.isEmpty() && IsStar(column.expression, tokens))
        return !select.hasMergedColumns && AddStar(column.expression);
    names.append(QString::fromUtf8(
        column.alias.isEmpty() ? WrittenName(column.expression, tokens, sql) : column.alias));
    return true;
}

bool NameCollector::AddStar(TokenRange expression)
{
    if (expression.end - expression.begin > 1)
        return AddTable(select.FindItem(tokens[expression.begin].Name()));
    return std::all_of(select.from.begin(), select.from.end(),
                       [this](const FromItem &item) { return AddTable(&item); });
}

bool NameCollector::AddTable(const FromItem *item)
{
    const TableInfo *table = item ? schema.FindTable(item->table) : nullptr;
    if (!table)
        return false;
    const bool isJoin = select.from.size() > 1;
    const QByteArray prefix = isJoin ? item->alias + '.' : QByteArray();
    for (const ColumnInfo &column : table->columns)
        names.append(QString::fromUtf8(prefix + column.name));
    return true;
}

} // namespace

std::optional<QStringList> ResultNames(const SelectOutline &select, const SqlTokens &tokens,
                                       const QByteArray &sql, const TableSchema &schema)
{
    NameCollector collector(select, tokens, schema);
    for (const ResultColumn &column : select.columns) {
        if (!collector.Add(column, sql))
            return std::nullopt;
    }
    return collector.names;
}

} // namespace Tesk::Database
