#include "sqlite2/PageFile.h"

#include "sqlite2/Format.h"

#include <limits>

namespace Sqlite2 {

namespace {

ByteOrder OrderOf(std::string_view bytes)
{
    for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
        if (ByteView(bytes, order).Number32(Format::ByteOrderMarkOffset) == Format::ByteOrderMark)
            return order;
    }
    throw Error("the header has no valid byte-order mark: the file is damaged");
}

} // namespace

PageFile::PageFile(std::string fileBytes)
    : bytes(std::move(fileBytes))
{
    if (!HasHeaderText(bytes))
        throw Error("this is no version 2 database file");
    if (bytes.size() % Format::PageSize != 0 || bytes.size() < 2 * Format::PageSize)
        throw Error("the file is cut off: " + std::to_string(bytes.size()) +
                    " bytes are no whole number of pages");
    if (bytes.size() / Format::PageSize > std::numeric_limits<std::uint32_t>::max())
        throw Error("the file has more pages than can be numbered");

    pageCount = static_cast<std::uint32_t>(bytes.size() / Format::PageSize);
    order = OrderOf(bytes);
    const std::uint32_t fileFormat = Page(1).Number32(Format::FileFormatOffset);
    if (fileFormat > Format::NewestFileFormat)
        throw Error("the file format " + std::to_string(fileFormat) + " is unknown");
}

bool PageFile::HasHeaderText(std::string_view bytes)
{
    return bytes.starts_with(Format::HeaderText);
}

ByteView PageFile::Page(std::uint32_t number) const
{
    if (number == 0 || number > pageCount)
        throw Error("a link leads to page " + std::to_string(number) +
                    ", but the file has pages 1 to " + std::to_string(pageCount));
    const std::size_t offset = (number - std::size_t{1}) * Format::PageSize;
    return {std::string_view(bytes).substr(offset, Format::PageSize), order};
}

} // namespace Sqlite2
