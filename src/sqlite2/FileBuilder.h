#pragma once

#include "sqlite2/ByteOrder.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Sqlite2 {

/// Writes the number's lowest `size` bytes at the offset. Throws std::out_of_range outside the
/// text.
void PutNumber(std::string &bytes, std::size_t offset, std::uint32_t number, std::size_t size,
               ByteOrder order);

/// The pages of a new file: the header page, the root of `sqlite_master`, and what is added.
class FileBuilder final
{
public:
    explicit FileBuilder(ByteOrder byteOrder);

    ByteOrder Order() const { return order; }

    /// A new page's number.
    std::uint32_t AddPage();

    /// Fills an existing page; the bytes are one page.
    void SetPage(std::uint32_t number, std::string_view page);

    /// Puts the text into a chain of new overflow pages and returns the first one's number.
    std::uint32_t AddOverflowChain(std::string_view payload);

    const std::string &Bytes() const { return bytes; }

private:
    ByteOrder order;
    std::string bytes;
};

} // namespace Sqlite2
