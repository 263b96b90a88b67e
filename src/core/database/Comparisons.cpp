#include "core/database/Comparisons.h"

#include "core/database/BetweenBounds.h"
#include "core/database/Collations.h"
#include "core/database/Connection.h"
#include "sqlite2/AsciiText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Tesk::Database {

namespace {

constexpr std::array Operators{"=", "==", "<>", "!=", "<", "<=", ">", ">="};
/// What may stand before and behind a whole comparison. Anything else, such as "+", would bind one
/// of its sides closer.
constexpr std::array WordsBefore{"WHERE", "ON",   "AND",  "OR",     "NOT",     "HAVING",
                                 "WHEN",  "THEN", "ELSE", "SELECT", "DISTINCT"};
constexpr std::array WordsBehind{"AND",   "OR",   "GROUP",   "HAVING", "ORDER", "LIMIT", "WHERE",
                                 "THEN",  "ELSE", "END",     "FROM",   "AS",    "INNER", "LEFT",
                                 "RIGHT", "FULL", "NATURAL", "CROSS",  "JOIN",  "WHEN"};

bool IsOperator(const SqlToken &token)
{
    return std::any_of(Operators.begin(), Operators.end(),
                       [&token](const char *symbol) { return token.IsSymbol(symbol); });
}

/// One side of a comparison.
struct Operand
{
    enum class Kind { Column, Number, Other };

    Kind kind = Kind::Other;
    TokenRange tokens;
    ColumnClass columnClass = ColumnClass::Other;
    /// The alias of the column's table where the column holds the row ids; else empty.
    QByteArray rowIdsOf = {};
};

/// A column of one of the statement's tables.
struct TableColumn
{
    const FromItem *item = nullptr;
    const ColumnInfo *info = nullptr;
};

class ComparisonFinder final
{
public:
    ComparisonFinder(const SelectOutline &outline, const SqlTokens &statement,
                     const TableSchema &tables)
        : select(outline)
        , tokens(statement)
        , schema(tables)
    {}

    TextEdits Find();

private:
    size_t EndOfBrackets(size_t open) const;
    size_t NextAtDepth(size_t index, const char *word) const;
    TableColumn ColumnOf(const FromItem &item, const QByteArray &name) const;
    TableColumn FindColumn(const QByteArray &name) const;
    Operand ColumnAt(size_t index) const;
    Operand NumberAt(size_t index) const;
    Operand OperandAt(size_t index) const;
    bool BeginsComparison(size_t index) const;
    bool EndsComparison(size_t index) const;
    size_t ReadComparison(size_t index);
    size_t ReadBetween(const Operand &column);
    void CompareByValue(const Operand &column);
    void KeepSpelling(const Operand &number);
    QByteArray TextOf(const Operand &operand) const;
    void FindByRowId(const Operand &left, const Operand &right);

    const SelectOutline &select;
    const SqlTokens &tokens;
    const TableSchema &schema;
    TextEdits edits;
};

/// The position behind the brackets that open at `open`.
size_t ComparisonFinder::EndOfBrackets(size_t open) const
{
    size_t index = open + 1;
    while (tokens[index].depth > tokens[open].depth)
        ++index;
    return index + 1;
}

size_t ComparisonFinder::NextAtDepth(size_t index, const char *word) const
{
    const int depth = tokens[index].depth;
    while (index < select.whole.end &&
           !(tokens[index].depth == depth && tokens[index].IsWord(word)))
        ++index;
    return index;
}

TableColumn ComparisonFinder::ColumnOf(const FromItem &item, const QByteArray &name) const
{
    const TableInfo *table = schema.FindTable(item.table);
    const ColumnInfo *column = table ? table->FindColumn(name) : nullptr;
    return column ? TableColumn{&item, column} : TableColumn{};
}

/// The column of this bare name where just one table has it.
TableColumn ComparisonFinder::FindColumn(const QByteArray &name) const
{
    TableColumn found;
    for (const FromItem &item : select.from) {
        const TableColumn column = ColumnOf(item, name);
        if (found.info && column.info)
            return {};
        found = column.info ? column : found;
    }
    return found;
}

Operand ComparisonFinder::ColumnAt(size_t index) const
{
    const size_t end = select.whole.end;
    const bool isQualified = index + 2 < end && tokens[index + 1].IsSymbol(".");
    TableColumn column;
    if (!isQualified)
        column = FindColumn(tokens[index].Name());
    else if (const FromItem *item = select.FindItem(tokens[index].Name()))
        column = ColumnOf(*item, tokens[index + 2].Name());
    if (!column.info || column.info->columnClass == ColumnClass::Other)
        return {};
    return {Operand::Kind::Column,
            {index, index + (isQualified ? 3 : 1)},
            column.info->columnClass,
            column.info->isRowId ? column.item->alias : QByteArray()};
}

Operand ComparisonFinder::NumberAt(size_t index) const
{
    const bool hasSign = tokens[index].IsSymbol("-") || tokens[index].IsSymbol("+");
    const size_t digits = hasSign ? index + 1 : index;
    if (digits >= select.whole.end || tokens[digits].kind != SqlToken::Kind::Number)
        return {};
    const QByteArrayView text = tokens[digits].text;
    if (!Sqlite2::IsNumber({text.data(), static_cast<size_t>(text.size())}))
        return {};
    return {Operand::Kind::Number, {index, digits + 1}};
}

Operand ComparisonFinder::OperandAt(size_t index) const
{
    if (index >= select.whole.end)
        return {};
    return tokens[index].IsName() ? ColumnAt(index) : NumberAt(index);
}

bool ComparisonFinder::BeginsComparison(size_t index) const
{
    const SqlToken &before = tokens[index - 1];
    return before.IsSymbol("(") || before.IsSymbol(",") ||
           (before.IsAnyWord(WordsBefore) && !IsAndOfBetween(tokens, index - 1));
}

bool ComparisonFinder::EndsComparison(size_t index) const
{
    if (index == select.whole.end)
        return true;
    const SqlToken &behind = tokens[index];
    return behind.IsSymbol(")") || behind.IsSymbol(",") || behind.IsAnyWord(WordsBehind);
}

void ComparisonFinder::CompareByValue(const Operand &column)
{
    const SqlToken &last = tokens[column.tokens.end - 1];
    edits.push_back({last.End(), 0, QByteArray(" COLLATE ") + NumericCollation});
}

/// A literal of SQLite 3 loses its spelling, digits beyond the fifteenth included; a text does not.
void ComparisonFinder::KeepSpelling(const Operand &number)
{
    const SqlToken &first = tokens[number.tokens.begin];
    const SqlToken &last = tokens[number.tokens.end - 1];
    edits.push_back({first.begin, last.End() - first.begin, TextOf(number)});
}

/// The operand as the rewritten statement spells it.
QByteArray ComparisonFinder::TextOf(const Operand &operand) const
{
    const SqlToken &last = tokens[operand.tokens.end - 1];
    if (operand.kind == Operand::Kind::Number) {
        const QByteArray sign = tokens[operand.tokens.begin].IsSymbol("-") ? "-" : "";
        return '\'' + sign + last.text.toByteArray() + '\'';
    }
    QByteArray text;
    for (size_t index = operand.tokens.begin; index < operand.tokens.end; ++index)
        text += tokens[index].text;
    return text;
}

/// What equals a row id by value is that number, so a condition for SQLite's own row id follows: it
/// leads to the row without an index.
void ComparisonFinder::FindByRowId(const Operand &left, const Operand &right)
{
    const Operand &id = left.rowIdsOf.isEmpty() ? right : left;
    const Operand &other = left.rowIdsOf.isEmpty() ? left : right;
    if (id.rowIdsOf.isEmpty() || schema.RowIdName().isEmpty())
        return;
    edits.push_back({tokens[left.tokens.begin].begin, 0, "("});
    edits.push_back({tokens[right.tokens.end - 1].End(), 0,
                     " AND " + Quoted(id.rowIdsOf) + '.' + schema.RowIdName() + "=CAST(" +
                         TextOf(other) + " AS REAL))"});
}

/// Reads what follows "column [NOT] BETWEEN"; answers the position behind it.
size_t ComparisonFinder::ReadBetween(const Operand &column)
{
    size_t index = column.tokens.end;
    if (index < select.whole.end && tokens[index].IsWord("NOT"))
        ++index;
    if (index >= select.whole.end || !tokens[index].IsWord("BETWEEN"))
        return column.tokens.end;
    const Operand low = OperandAt(index + 1);
    const size_t conjunction = NextAtDepth(index, "AND");
    const Operand high = OperandAt(conjunction + 1);
    if (low.kind != Operand::Kind::Number || low.tokens.end != conjunction ||
        high.kind != Operand::Kind::Number || !EndsComparison(high.tokens.end))
        return conjunction + 2; // not to take the upper bound for a comparison's left side
    CompareByValue(column);
    KeepSpelling(low);
    KeepSpelling(high);
    return high.tokens.end;
}

/// Reads the comparison that may begin at `index`; answers the position behind what it read.
size_t ComparisonFinder::ReadComparison(size_t index)
{
    const Operand left = OperandAt(index);
    if (left.kind == Operand::Kind::Other || !BeginsComparison(index))
        return index + 1;
    const size_t behindLeft = left.tokens.end;
    if (behindLeft >= select.whole.end || !IsOperator(tokens[behindLeft]))
        return left.kind == Operand::Kind::Column ? ReadBetween(left) : behindLeft;

    const Operand right = OperandAt(behindLeft + 1);
    if (right.kind == Operand::Kind::Other || !EndsComparison(right.tokens.end))
        return behindLeft;
    const bool leftIsColumn = left.kind == Operand::Kind::Column;
    const bool rightIsColumn = right.kind == Operand::Kind::Column;
    const bool isMixed = leftIsColumn && rightIsColumn && left.columnClass != right.columnClass;
    const bool hasNumber = leftIsColumn != rightIsColumn;
    if (isMixed || hasNumber)
        CompareByValue(leftIsColumn ? left : right);
    if (hasNumber)
        KeepSpelling(leftIsColumn ? right : left);
    if (tokens[behindLeft].IsSymbol("=") || tokens[behindLeft].IsSymbol("=="))
        FindByRowId(left, right);
    return right.tokens.end;
}

TextEdits ComparisonFinder::Find()
{
    for (size_t index = select.whole.begin + 1; index < select.whole.end;) {
        const bool isSubSelect = tokens[index].IsSymbol("(") && index + 1 < select.whole.end &&
                                 tokens[index + 1].IsWord("SELECT");
        index = isSubSelect ? EndOfBrackets(index) : ReadComparison(index);
    }
    return std::move(edits);
}

} // namespace

TextEdits ComparisonEdits(const SelectOutline &select, const SqlTokens &tokens,
                          const TableSchema &schema)
{
    return ComparisonFinder(select, tokens, schema).Find();
}

} // namespace Tesk::Database
