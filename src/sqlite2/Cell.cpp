#include "sqlite2/Cell.h"

#include "sqlite2/Format.h"

#include <algorithm>

namespace Sqlite2 {

std::size_t CellSize(std::size_t payloadSize)
{
    const std::size_t behindHeader = payloadSize > Format::MaxLocalPayload
                                         ? Format::MaxLocalPayload + Format::PageNumberSize
                                         : payloadSize;
    const std::size_t size = Format::CellHeaderSize + behindHeader;
    return (size + Format::Alignment - 1) / Format::Alignment * Format::Alignment;
}

Cell DecodeCell(const ByteView &page, std::size_t offset)
{
    if (offset < Format::PageHeaderSize || offset % Format::Alignment != 0)
        throw Error("a cell begins at offset " + std::to_string(offset) + ", where none can begin");

    Cell cell;
    cell.leftChild = page.Number32(offset + Format::CellLeftChild);
    cell.next = page.Number16(offset + Format::CellNext);
    cell.keySize = page.Number16(offset + Format::CellKeySizeLow) |
                   page.Byte(offset + Format::CellKeySizeHigh) << 16;
    cell.dataSize = page.Number16(offset + Format::CellDataSizeLow) |
                    page.Byte(offset + Format::CellDataSizeHigh) << 16;

    const std::size_t payloadOffset = offset + Format::CellHeaderSize;
    const std::size_t localSize = std::min(cell.PayloadSize(), Format::MaxLocalPayload);
    cell.localPayload = page.Slice(payloadOffset, localSize);
    if (cell.PayloadSize() > localSize) {
        cell.overflowPage = page.Number32(payloadOffset + localSize);
        if (cell.overflowPage == 0)
            throw Error("a cell at offset " + std::to_string(offset) + " lacks its overflow page");
    }
    return cell;
}

} // namespace Sqlite2
