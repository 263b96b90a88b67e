#pragma once

#include "sqlite2/FileBuilder.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Sqlite2 {

/// A cell on its way into a page: what lies behind its 236 bytes is in overflow pages already.
struct NewCell
{
    std::uint32_t leftChild = 0;
    std::size_t keySize = 0;
    std::size_t dataSize = 0;
    /// The payload that stands in the page, and the overflow page's number behind it if there is
    /// one.
    std::string content;

    /// Bytes that the cell takes in its page.
    std::size_t Size() const;
};

/// Makes a cell of the entry, putting what is too long into overflow pages. Throws Error for an
/// entry that the format cannot hold.
NewCell MakeCell(FileBuilder &file, std::string_view key, std::string_view data);

/// The bytes that the cells of one page may take together.
std::size_t CellSpace();

/// Lays the cells out in a page, one behind the other in their order, the rest one free block. They
/// must fit.
std::string BuildPage(const std::vector<NewCell> &cells, std::uint32_t rightChild, ByteOrder order);

} // namespace Sqlite2
