#include "core/database/Conjunctions.h"

#include <cmath>

namespace Tesk::Database {

namespace {

constexpr size_t LongestChain = 200;

/// The conditions that AND joins at the outermost level; nothing where OR stands there too.
std::vector<TokenRange> ConditionsOf(TokenRange where, const SqlTokens &tokens)
{
    std::vector<TokenRange> conditions;
    size_t begin = where.begin;
    int openCases = 0;
    bool isBetween = false;
    for (size_t index = where.begin; index < where.end; ++index) {
        const SqlToken &token = tokens[index];
        if (token.depth > 0)
            continue;
        openCases += static_cast<int>(token.IsWord("CASE")) - static_cast<int>(token.IsWord("END"));
        if (openCases > 0)
            continue;
        if (token.IsWord("OR"))
            return {};
        if (token.IsWord("BETWEEN")) {
            isBetween = true;
        } else if (token.IsWord("AND") && isBetween) {
            isBetween = false;
        } else if (token.IsWord("AND")) {
            conditions.push_back({begin, index});
            begin = index + 1;
        }
    }
    conditions.push_back({begin, where.end});
    return conditions;
}

} // namespace

TextEdits ConjunctionEdits(const SelectOutline &select, const SqlTokens &tokens)
{
    const std::vector<TokenRange> conditions = ConditionsOf(select.where, tokens);
    if (conditions.size() <= LongestChain)
        return {};
    const auto groupSize =
        static_cast<size_t>(std::ceil(std::sqrt(static_cast<double>(conditions.size()))));
    TextEdits edits;
    for (size_t first = 0; first < conditions.size(); first += groupSize) {
        const size_t last = std::min(first + groupSize, conditions.size()) - 1;
        if (conditions[first].IsEmpty() || conditions[last].IsEmpty())
            return {};
        edits.push_back({tokens[conditions[first].begin].begin, 0, "("});
        edits.push_back({tokens[conditions[last].end - 1].End(), 0, ")"});
    }
    return edits;
}

} // namespace Tesk::Database
