#pragma once

#include "sqlite2/Cell.h"
#include "sqlite2/PageFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Sqlite2 {

/// Walks one b-tree's entries in key order; keys that do not ascend throw Error. The tree's pages
/// are known to be sound: PageCensus has taken them.
class TreeWalk final
{
public:
    TreeWalk(const PageFile &file, std::uint32_t rootPage);

    /// Moves to the next entry; false behind the last.
    bool Next();

    /// The current entry's key and data, valid until the next call of Next().
    std::string_view Key() const { return payload.substr(0, keySize); }
    std::string_view Data() const { return payload.substr(keySize); }

private:
    struct Position
    {
        std::uint32_t page;
        /// The cell to deliver next, or 0 when only the right-most child is left.
        std::uint32_t cell;
    };

    void EnterLeftmost(std::uint32_t pageNumber);
    void ReadPayload(const Cell &cell);
    void RequireAscendingKeys();

    const PageFile &file;
    std::uint32_t rootPage;
    std::vector<Position> path;
    std::string assembled;
    std::string previousKey;
    std::string_view payload;
    std::size_t keySize = 0;
    bool isFirst = true;
};

} // namespace Sqlite2
