#pragma once

#include <cstdint>
#include <vector>

namespace Sqlite2 {

/// Which tree each page belongs to, as far as trees were read. A page that two trees claim, or one
/// tree twice, betrays a damaged file; refusing it bounds the work for all trees together by the
/// number of pages. Trees are named by their root pages.
class PageClaims final
{
public:
    explicit PageClaims(std::uint32_t pageCount);

    /// Throws Error when the page belongs to another tree already, or lies outside the file.
    void Claim(std::uint32_t page, std::uint32_t rootPage);

private:
    std::vector<std::uint32_t> owners;
};

} // namespace Sqlite2
