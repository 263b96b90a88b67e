#include "core/database/ResultNames.h"

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

/// Adds the columns of one table that a `*` stands for; false when they are not known.
bool AddColumns(QStringList &names, const FromItem *item, bool isJoin, const TableSchema &schema)
{
    const TableInfo *table = item && item->IsTable() ? schema.FindTable(item->table) : nullptr;
    if (!table)
        return false;
    const QByteArray prefix = isJoin ? item->alias + '.' : QByteArray();
    for (const ColumnInfo &column : table->columns)
        names.append(QString::fromUtf8(prefix + column.name));
    return true;
}

} // namespace

std::optional<QStringList> ResultNames(const SelectOutline &select, const SqlTokens &tokens,
                                       const QByteArray &sql, const TableSchema &schema)
{
    const bool isJoin = select.from.size() > 1;
    QStringList names;
    for (const ResultColumn &column : select.columns) {
        const TokenRange expression = column.expression;
        if (expression.IsEmpty())
            return std::nullopt;
        if (!column.alias.isEmpty()) {
            names.append(QString::fromUtf8(column.alias));
        } else if (!IsStar(expression, tokens)) {
            names.append(QString::fromUtf8(WrittenName(expression, tokens, sql)));
        } else if (select.hasMergedColumns) {
            return std::nullopt;
        } else if (expression.end - expression.begin == 1) {
            for (const FromItem &item : select.from) {
                if (!AddColumns(names, &item, isJoin, schema))
                    return std::nullopt;
            }
        } else if (!AddColumns(names, select.FindItem(tokens[expression.begin].Name()), isJoin,
                               schema)) {
            return std::nullopt;
        }
    }
    return names;
}

} // namespace Tesk::Database
