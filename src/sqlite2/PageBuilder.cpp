#include "sqlite2/PageBuilder.h"

#include "sqlite2/Cell.h"
#include "sqlite2/Error.h"
#include "sqlite2/Format.h"

namespace Sqlite2 {

namespace {

void PutCell(std::string &page, std::size_t offset, const NewCell &cell, std::size_t next,
             ByteOrder order)
{
    const auto put = [&](std::size_t field, std::size_t number, std::size_t size) {
        PutNumber(page, offset + field, static_cast<std::uint32_t>(number), size, order);
    };
    put(Format::CellLeftChild, cell.leftChild, 4);
    put(Format::CellKeySizeLow, cell.keySize & 0xffff, 2);
    put(Format::CellNext, next, 2);
    put(Format::CellKeySizeHigh, cell.keySize >> 16, 1);
    put(Format::CellDataSizeHigh, cell.dataSize >> 16, 1);
    put(Format::CellDataSizeLow, cell.dataSize & 0xffff, 2);
    page.replace(offset + Format::CellHeaderSize, cell.content.size(), cell.content);
}

} // namespace

std::size_t NewCell::Size() const
{
    return CellSize(keySize + dataSize);
}

NewCell MakeCell(FileBuilder &file, std::string_view key, std::string_view data)
{
    if (key.size() > Format::MaxKeySize || data.size() > Format::MaxDataSize)
        throw Error("an entry is too large for the file format");

    NewCell cell;
    cell.keySize = key.size();
    cell.dataSize = data.size();
    cell.content.reserve(key.size() + data.size());
    cell.content.append(key).append(data);
    if (cell.content.size() > Format::MaxLocalPayload) {
        const std::string_view payload = cell.content;
        const std::uint32_t overflow =
            file.AddOverflowChain(payload.substr(Format::MaxLocalPayload));
        cell.content.resize(Format::MaxLocalPayload + Format::PageNumberSize);
        PutNumber(cell.content, Format::MaxLocalPayload, overflow, Format::PageNumberSize,
                  file.Order());
    }
    return cell;
}

std::size_t CellSpace()
{
    return Format::PageSize - Format::PageHeaderSize;
}

std::string BuildPage(const std::vector<NewCell> &cells, std::uint32_t rightChild, ByteOrder order)
{
    std::string page(Format::PageSize, '\0');
    std::size_t offset = Format::PageHeaderSize;
    for (const NewCell &cell : cells) {
        const std::size_t end = offset + cell.Size();
        PutCell(page, offset, cell, &cell == &cells.back() ? 0 : end, order);
        offset = end;
    }

    const std::size_t free = Format::PageSize - offset;
    PutNumber(page, Format::RightChildOffset, rightChild, 4, order);
    PutNumber(page, Format::FirstCellOffset, cells.empty() ? 0 : Format::PageHeaderSize, 2, order);
    PutNumber(page, Format::FirstFreeBlockOffset, free > 0 ? static_cast<std::uint32_t>(offset) : 0,
              2, order);
    if (free > 0)
        PutNumber(page, offset, static_cast<std::uint32_t>(free), 2, order);
    return page;
}

} // namespace Sqlite2
