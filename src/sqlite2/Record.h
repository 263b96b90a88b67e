#pragma once

#include "sqlite2/Value.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Sqlite2 {

/// Reads a table record of this many values into the row, whose strings are reused. Throws Error
/// for a record of another shape.
void DecodeRecord(std::string_view record, std::size_t valueCount, Row &row);

/// The record of these values. Throws Error for a text that holds a NUL or a record too large for
/// the format.
std::string EncodeRecord(const Row &row);

} // namespace Sqlite2
