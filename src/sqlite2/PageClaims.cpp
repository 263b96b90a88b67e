#include "sqlite2/PageClaims.h"

#include "sqlite2/Error.h"

#include <string>

namespace Sqlite2 {

PageClaims::PageClaims(std::uint32_t pageCount)
    : owners(pageCount + std::size_t{1}, 0)
{
    // The file's header is no part of any tree.
    if (pageCount > 0)
        owners[1] = 1;
}

void PageClaims::Claim(std::uint32_t page, std::uint32_t rootPage)
{
    if (page == 0 || page >= owners.size())
        throw Error("a link leads to page " + std::to_string(page) +
                    ", which the file does not have");
    std::uint32_t &owner = owners[page];
    if (owner != 0 && owner != rootPage)
        throw Error("page " + std::to_string(page) + " belongs to the trees of page " +
                    std::to_string(owner) + " and of page " + std::to_string(rootPage));
    owner = rootPage;
}

} // namespace Sqlite2
