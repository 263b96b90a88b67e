#include "sqlite2/FileBuilder.h"

#include "sqlite2/Error.h"
#include "sqlite2/Format.h"

#include <limits>

namespace Sqlite2 {

namespace {

/// Any number will do; a program that has the file open notices by it that the schema changed.
constexpr std::uint32_t FirstSchemaVersion = 1;

} // namespace

void PutNumber(std::string &bytes, std::size_t offset, std::uint32_t number, std::size_t size,
               ByteOrder order)
{
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t at = offset + (order == ByteOrder::Little ? i : size - 1 - i);
        bytes.at(at) = static_cast<char>(number >> 8 * i & 0xff);
    }
}

FileBuilder::FileBuilder(ByteOrder byteOrder)
    : order(byteOrder)
    , bytes(Format::MasterRootPage * Format::PageSize, '\0')
{
    bytes.replace(0, Format::HeaderText.size(), Format::HeaderText);
    PutNumber(bytes, Format::ByteOrderMarkOffset, Format::ByteOrderMark, 4, order);
    PutNumber(bytes, Format::SchemaVersionOffset, FirstSchemaVersion, 4, order);
    PutNumber(bytes, Format::FileFormatOffset, Format::NewestFileFormat, 4, order);
}

std::uint32_t FileBuilder::AddPage()
{
    bytes.append(Format::PageSize, '\0');
    const std::size_t number = bytes.size() / Format::PageSize;
    if (number > std::numeric_limits<std::int32_t>::max())
        throw Error("the database has more pages than the format can number");
    return static_cast<std::uint32_t>(number);
}

void FileBuilder::SetPage(std::uint32_t number, std::string_view page)
{
    bytes.replace((number - std::size_t{1}) * Format::PageSize, Format::PageSize, page);
}

std::uint32_t FileBuilder::AddOverflowChain(std::string_view payload)
{
    const std::uint32_t first = AddPage();
    std::uint32_t current = first;
    while (true) {
        const std::string_view part = payload.substr(0, Format::OverflowPayload);
        payload.remove_prefix(part.size());
        const std::uint32_t next = payload.empty() ? 0 : AddPage();

        std::string page(Format::PageSize, '\0');
        PutNumber(page, 0, next, Format::PageNumberSize, order);
        page.replace(Format::PageNumberSize, part.size(), part);
        SetPage(current, page);
        if (next == 0)
            return first;
        current = next;
    }
}

} // namespace Sqlite2
