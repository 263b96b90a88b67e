#pragma once

#include "sqlite2/ByteView.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Sqlite2 {

/// The fixed part of one b-tree cell and the payload that stands in the page.
struct Cell
{
    std::uint32_t leftChild = 0;
    /// Offset of the next cell of the page, 0 for the last.
    std::uint32_t next = 0;
    std::size_t keySize = 0;
    std::size_t dataSize = 0;
    std::string_view localPayload;
    /// The first overflow page; 0 when the whole payload stands in the page.
    std::uint32_t overflowPage = 0;

    std::size_t PayloadSize() const { return keySize + dataSize; }
};

/// The bytes that a cell of this payload takes in its page.
std::size_t CellSize(std::size_t payloadSize);

/// The cell at the offset. Throws Error when it does not fit into the page.
Cell DecodeCell(const ByteView &page, std::size_t offset);

} // namespace Sqlite2
