#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Sqlite2 {

/// A table's key: the row id with its sign bit flipped, most significant byte first, so that keys
/// sort byte by byte like the row ids. The same in files of either byte order.
std::string EncodeRowKey(std::int32_t rowId);

/// The row id of a key. Throws Error for a key of another length.
std::int32_t DecodeRowKey(std::string_view key);

} // namespace Sqlite2
