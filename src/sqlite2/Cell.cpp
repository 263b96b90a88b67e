#include "sqlite2/Cell.h"

#include "sqlite2/Format.h"

#include <algorithm>

namespace Sqlite2 {

std::size_t CellSize(std::size_t payloadSize)
{
    const std::size_t behindHeader = payloadSize > Format::maxLocalPayload
                                         ? Format::maxLocalPayload + Format::pageNumberSize
                                         : payloadSize;
    const std::size_t size = Format::cellHeaderSize + behindHeader;
    return (size + Format::alignment - 1) / Format::alignment * Format::alignment;
}

Cell DecodeCell(const ByteView &page, std::size_t offset)
{
    if (offset < Format::pageHeaderSize || offset % Format::alignment != 0)
        throw Error("a cell begins at offset " + std::to_string(offset) + ", where none can begin");

    Cell cell;
    cell.leftChild = page.Number32(offset + Format::cellLeftChild);
    cell.next = page.Number16(offset + Format::cellNext);
    cell.keySize = page.Number16(offset + Format::cellKeySizeLow) |
                   page.Byte(offset + Format::cellKeySizeHigh) << 16;
    cell.dataSize = page.Number16(offset + Format::cellDataSizeLow) |
                    page.Byte(offset + Format::cellDataSizeHigh) << 16;

    const std::size_t payloadOffset = offset + Format::cellHeaderSize;
    const std::size_t localSize = std::min(cell.PayloadSize(), Format::maxLocalPayload);
    cell.localPayload = page.Slice(payloadOffset, localSize);
    if (cell.PayloadSize() > localSize) {
        cell.overflowPage = page.Number32(payloadOffset + localSize);
        if (cell.overflowPage == 0)
            throw Error("a cell at offset " + std::to_string(offset) + " lacks its overflow page");
    }
    return cell;
}

} // namespace Sqlite2
