#include "sqlite2/RowKey.h"

#include "sqlite2/ByteView.h"
#include "sqlite2/Format.h"

#include <bit>

namespace Sqlite2 {

namespace {

constexpr std::uint32_t SignBit = 0x80000000;

} // namespace

std::string EncodeRowKey(std::int32_t rowId)
{
    const std::uint32_t bits = std::bit_cast<std::uint32_t>(rowId) ^ SignBit;
    std::string key;
    for (int shift = 24; shift >= 0; shift -= 8)
        key.push_back(static_cast<char>(bits >> shift & 0xff));
    return key;
}

std::int32_t DecodeRowKey(std::string_view key)
{
    if (key.size() != Format::RowKeySize)
        throw Error("a table's key has " + std::to_string(key.size()) + " bytes instead of 4");
    return std::bit_cast<std::int32_t>(ByteView(key, ByteOrder::Big).Number32(0) ^ SignBit);
}

} // namespace Sqlite2
