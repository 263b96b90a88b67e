#pragma once

#include "sqlite2/ByteView.h"

#include <cstdint>
#include <string>

namespace Sqlite2 {

/// A version 2 file's bytes as numbered pages. Pages count from 1.
class PageFile final
{
public:
    /// Throws Error for bytes that are no version 2 file of whole pages.
    explicit PageFile(std::string fileBytes);

    /// Whether the bytes begin like a version 2 file.
    static bool HasHeaderText(std::string_view bytes);

    ByteOrder Order() const { return order; }
    std::uint32_t PageCount() const { return pageCount; }

    /// The page of this number as long as this object lives. Throws Error for one outside the file.
    ByteView Page(std::uint32_t number) const;

private:
    std::string bytes;
    std::uint32_t pageCount = 0;
    ByteOrder order = ByteOrder::Little;
};

} // namespace Sqlite2
