#pragma once

#include "sqlite2/Format.h"

#include <bitset>
#include <cstddef>

namespace Sqlite2 {

/// Which bytes of a b-tree page its cells and free blocks take: each must be taken once.
class PageCover final
{
public:
    PageCover();

    /// Throws Error for bytes that cannot be those of a cell or block, or are taken already.
    void Take(std::size_t offset, std::size_t size);

    /// Throws Error when there are bytes that nothing has taken.
    void RequireAll() const;

private:
    std::bitset<Format::PageSize / Format::Alignment> isTaken;
};

} // namespace Sqlite2
