#include "core/database/SelectOutline.h"

#include <algorithm>
#include <array>

namespace Tesk::Database {

namespace {

constexpr std::array ClauseWords{"FROM",  "WHERE", "GROUP",     "HAVING", "ORDER",
                                 "LIMIT", "UNION", "INTERSECT", "EXCEPT", "WINDOW"};
constexpr std::array CompoundWords{"UNION", "INTERSECT", "EXCEPT"};
constexpr std::array JoinWords{"NATURAL", "LEFT",  "RIGHT", "FULL",
                               "OUTER",   "INNER", "CROSS", "JOIN"};
constexpr std::array WordsBehindTable{"ON", "USING", "INDEXED", "NOT"};
/// Words of an expression that neither end an operand nor name a column.
constexpr std::array ExpressionWords{"AND",     "OR",      "NOT",   "LIKE",    "GLOB", "MATCH",
                                     "REGEXP",  "IN",      "IS",    "BETWEEN", "NULL", "ISNULL",
                                     "NOTNULL", "CASE",    "WHEN",  "THEN",    "ELSE", "END",
                                     "ESCAPE",  "COLLATE", "EXISTS"};

/// Reads the clauses of one statement. A method that answers false met something unknown.
class OutlineReader final
{
public:
    explicit OutlineReader(const SqlTokens &statement)
        : tokens(statement)
    {}

    std::optional<SelectOutline> Read();

private:
    bool IsClauseWord(size_t index) const;
    size_t NextClause(size_t index) const;
    void ReadColumns(TokenRange list);
    ResultColumn ColumnOf(TokenRange entry) const;
    bool ReadFrom(TokenRange list);
    bool ReadFromItem(size_t &index, size_t end);
    void SkipToNextItem(size_t &index, size_t end);
    void ReadClause(size_t begin, size_t end);

    const SqlTokens &tokens;
    SelectOutline outline;
};

bool OutlineReader::IsClauseWord(size_t index) const
{
    const SqlToken &token = tokens[index];
    // "IS DISTINCT FROM" compares.
    const bool isComparison = token.IsWord("FROM") && tokens[index - 1].IsWord("DISTINCT");
    return token.depth == 0 && token.IsAnyWord(ClauseWords) && !isComparison;
}

size_t OutlineReader::NextClause(size_t index) const
{
    while (index < tokens.size() && !IsClauseWord(index))
        ++index;
    return index;
}

ResultColumn OutlineReader::ColumnOf(TokenRange entry) const
{
    const size_t count = entry.end - entry.begin;
    if (count < 2)
        return {entry, {}};
    const SqlToken &last = tokens[entry.end - 1];
    const SqlToken &before = tokens[entry.end - 2];
    const bool canBeAlias =
        (last.IsName() && !last.IsAnyWord(ExpressionWords)) || last.kind == SqlToken::Kind::String;
    if (canBeAlias && count > 2 && before.IsWord("AS"))
        return {{entry.begin, entry.end - 2}, last.Name()};
    // A name behind a whole operand is an alias too.
    const bool endsOperand = before.kind != SqlToken::Kind::Symbol || before.IsSymbol(")");
    if (canBeAlias && endsOperand && (before.IsWord("END") || !before.IsAnyWord(ExpressionWords)))
        return {{entry.begin, entry.end - 1}, last.Name()};
    return {entry, {}};
}

void OutlineReader::ReadColumns(TokenRange list)
{
    size_t begin = list.begin;
    for (size_t index = list.begin; index <= list.end; ++index) {
        const bool isComma =
            index < list.end && tokens[index].depth == 0 && tokens[index].IsSymbol(",");
        if (!isComma && index < list.end)
            continue;
        outline.columns.push_back(ColumnOf({begin, index}));
        begin = index + 1;
    }
}

bool OutlineReader::ReadFromItem(size_t &index, size_t end)
{
    FromItem item;
    const auto at = [&](const char *symbol) {
        return index < end && tokens[index].IsSymbol(symbol);
    };
    const auto skipBrackets = [&] {
        while (index < end && !(tokens[index].depth == 0 && tokens[index].IsSymbol(")")))
            ++index;
        ++index;
    };

    if (at("(")) {
        skipBrackets();
    } else if (index < end && tokens[index].IsName()) {
        item.table = tokens[index++].Name();
        if (at(".") && index + 1 < end && tokens[index + 1].IsName()) {
            item.table = tokens[index + 1].Name();
            index += 2;
        }
        item.alias = item.table;
        if (at("(")) {
            item.table.clear();
            skipBrackets();
        }
    } else {
        return false;
    }

    if (index < end && tokens[index].IsWord("AS"))
        ++index;
    if (index < end && tokens[index].kind != SqlToken::Kind::Symbol &&
        !tokens[index].IsAnyWord(JoinWords) && !tokens[index].IsAnyWord(WordsBehindTable))
        item.alias = tokens[index++].Name();
    outline.from.push_back(item);
    return true;
}

void OutlineReader::SkipToNextItem(size_t &index, size_t end)
{
    const auto isSeparator = [](const SqlToken &token) {
        return token.depth == 0 && (token.IsSymbol(",") || token.IsAnyWord(JoinWords));
    };
    while (index < end && !isSeparator(tokens[index]))
        outline.hasMergedColumns |= tokens[index++].IsWord("USING");
    while (index < end && isSeparator(tokens[index]))
        outline.hasMergedColumns |= tokens[index++].IsWord("NATURAL");
}

bool OutlineReader::ReadFrom(TokenRange list)
{
    size_t index = list.begin;
    do {
        if (!ReadFromItem(index, list.end))
            return false;
        SkipToNextItem(index, list.end);
    } while (index < list.end);
    return true;
}

void OutlineReader::ReadClause(size_t begin, size_t end)
{
    const SqlToken &word = tokens[begin];
    if (word.IsWord("WHERE"))
        outline.where = {begin + 1, end};
    else if (word.IsWord("ORDER"))
        outline.order = {begin, end};
    else if (word.IsWord("LIMIT"))
        outline.limit = {begin, end};
    else
        outline.isGrouped = true; // GROUP BY, HAVING
}

std::optional<SelectOutline> OutlineReader::Read()
{
    if (tokens.size() < 2 || !tokens.front().IsWord("SELECT"))
        return std::nullopt;
    size_t begin = 1;
    outline.isDistinct = tokens[begin].IsWord("DISTINCT");
    if (outline.isDistinct || tokens[begin].IsWord("ALL"))
        ++begin;

    size_t clause = NextClause(begin);
    ReadColumns({begin, clause});
    while (clause < tokens.size() && !tokens[clause].IsAnyWord(CompoundWords)) {
        const size_t end = NextClause(clause + 1);
        if (!tokens[clause].IsWord("FROM"))
            ReadClause(clause, end);
        else if (!ReadFrom({clause + 1, end}))
            return std::nullopt;
        clause = end;
    }
    outline.isCompound = clause < tokens.size();
    outline.whole = {0, clause};
    return outline;
}

} // namespace

const FromItem *SelectOutline::FindItem(const QByteArray &alias) const
{
    const auto item = std::find_if(from.begin(), from.end(), [&alias](const FromItem &candidate) {
        return qstricmp(candidate.alias, alias) == 0;
    });
    return item == from.end() ? nullptr : &*item;
}

std::optional<SelectOutline> OutlineOf(const SqlTokens &tokens)
{
    return OutlineReader(tokens).Read();
}

} // namespace Tesk::Database
