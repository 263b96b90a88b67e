#include "core/database/RowOrder.h"

#include "core/database/Connection.h"

#include <algorithm>
#include <array>

namespace Tesk::Database {

namespace {

constexpr std::array Aggregates{"avg", "count", "group_concat", "sum", "total"};
/// Aggregates of one argument; of several, they choose among their arguments.
constexpr std::array AggregatesOfOne{"max", "min"};

/// Whether the brackets that open at `open` hold a "," between arguments.
bool HasSeveralArguments(const SqlTokens &tokens, size_t open)
{
    const int depth = tokens[open].depth;
    for (size_t index = open + 1; index < tokens.size() && tokens[index].depth > depth; ++index) {
        if (tokens[index].depth == depth + 1 && tokens[index].IsSymbol(","))
            return true;
    }
    return false;
}

bool HasAggregate(const SelectOutline &select, const SqlTokens &tokens)
{
    for (const ResultColumn &column : select.columns) {
        const TokenRange range = column.expression;
        for (size_t index = range.begin; index + 1 < range.end; ++index) {
            if (!tokens[index + 1].IsSymbol("("))
                continue;
            if (tokens[index].IsAnyWord(Aggregates) || (tokens[index].IsAnyWord(AggregatesOfOne) &&
                                                        !HasSeveralArguments(tokens, index + 1)))
                return true;
        }
    }
    return false;
}

bool HasRowIds(const SelectOutline &select, const TableSchema &schema)
{
    return !select.from.empty() && !schema.RowIdName().isEmpty() &&
           std::all_of(select.from.begin(), select.from.end(), [&](const FromItem &item) {
               const TableInfo *table = schema.FindTable(item.table);
               return table && !table->isView && select.FindItem(item.alias) == &item;
           });
}

} // namespace

TextEdits RowOrderEdits(const SelectOutline &select, const SqlTokens &tokens,
                        const TableSchema &schema)
{
    if (select.isCompound || select.isGrouped || select.isDistinct ||
        HasAggregate(select, tokens) || !HasRowIds(select, schema))
        return {};

    // The "+" keeps the planner from choosing its loops for the sake of this order.
    const QByteArray sign = select.from.size() > 1 ? "+" : "";
    QByteArrayList terms;
    for (const FromItem &item : select.from)
        terms.append(sign + Quoted(item.alias) + '.' + schema.RowIdName());

    const size_t end = select.limit.IsEmpty() ? select.whole.end : select.limit.begin;
    const QByteArray start = select.order.IsEmpty() ? " ORDER BY " : ", ";
    return {{tokens[end - 1].End(), 0, start + terms.join(", ")}};
}

} // namespace Tesk::Database
