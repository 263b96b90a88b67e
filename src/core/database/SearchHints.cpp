#include "core/database/SearchHints.h"

#include "core/database/BetweenBounds.h"

namespace Tesk::Database {

namespace {

/// The first token of the column that ends in front of `index`.
size_t BeginOfColumn(const SqlTokens &tokens, size_t index)
{
    const bool isQualified = index >= 3 && tokens[index - 2].IsSymbol(".");
    return isQualified ? index - 3 : index - 1;
}

/// Whether the tokens are a condition by itself: inside brackets, or between AND and AND.
bool StandsAlone(TokenRange condition, const SelectOutline &select, const SqlTokens &tokens)
{
    const SqlToken &before = tokens[condition.begin - 1];
    const bool followsAnd = before.IsWord("AND") && !IsAndOfBetween(tokens, condition.begin - 1);
    const bool begins = before.IsSymbol("(") || followsAnd || before.IsWord("WHERE");
    const bool ends = condition.end == select.where.end || tokens[condition.end].IsSymbol(")") ||
                      tokens[condition.end].IsWord("AND");
    return begins && ends;
}

} // namespace

TextEdits SearchHintEdits(const SelectOutline &select, const SqlTokens &tokens)
{
    TextEdits edits;
    for (size_t index = select.where.begin + 1; index + 1 < select.where.end; ++index) {
        const SqlToken &pattern = tokens[index + 1];
        if (!tokens[index].IsWord("LIKE") || !tokens[index - 1].IsName() ||
            pattern.kind != SqlToken::Kind::String)
            continue;
        const TokenRange condition{BeginOfColumn(tokens, index), index + 2};
        if (!StandsAlone(condition, select, tokens))
            continue;
        edits.push_back({tokens[condition.begin].begin, 0, "unlikely("});
        edits.push_back({pattern.End(), 0, ")"});
    }
    return edits;
}

} // namespace Tesk::Database
