#include "core/database/BetweenBounds.h"

namespace Tesk::Database {

bool IsAndOfBetween(const SqlTokens &tokens, size_t index)
{
    if (!tokens[index].IsWord("AND"))
        return false;
    const int depth = tokens[index].depth;
    for (size_t before = index; before-- > 0 && tokens[before].depth >= depth;) {
        if (tokens[before].depth > depth)
            continue;
        if (tokens[before].IsWord("BETWEEN"))
            return true;
        if (tokens[before].IsWord("AND") || tokens[before].IsWord("OR"))
            return false;
    }
    return false;
}

} // namespace Tesk::Database
