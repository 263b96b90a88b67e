#pragma once

#include "sqlite2/ByteOrder.h"
#include "sqlite2/Error.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Sqlite2 {

/// A stretch of bytes whose every access is checked: one that reaches outside throws Error. Offsets
/// count from 0. The view does not own the bytes.
class ByteView final
{
public:
    ByteView(std::string_view bytes, ByteOrder byteOrder)
        : content(bytes)
        , order(byteOrder)
    {}

    std::uint32_t Byte(std::size_t offset) const
    {
        Require(offset, 1);
        return static_cast<unsigned char>(content[offset]);
    }

    /// The number of `size` bytes (1 to 4) at the offset, in the view's byte order.
    std::uint32_t Number(std::size_t offset, std::size_t size) const
    {
        Require(offset, size);
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t at = offset + (order == ByteOrder::Big ? i : size - 1 - i);
            number = number << 8 | static_cast<unsigned char>(content[at]);
        }
        return number;
    }

    std::uint32_t Number16(std::size_t offset) const { return Number(offset, 2); }
    std::uint32_t Number32(std::size_t offset) const { return Number(offset, 4); }

    std::string_view Slice(std::size_t offset, std::size_t size) const
    {
        Require(offset, size);
        return content.substr(offset, size);
    }

private:
    void Require(std::size_t offset, std::size_t size) const
    {
        if (offset > content.size() || size > content.size() - offset)
            throw Error("a number or text reaches beyond the bytes that hold it");
    }

    std::string_view content;
    ByteOrder order;
};

} // namespace Sqlite2
