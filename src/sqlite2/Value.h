#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Sqlite2 {

/// A stored value: 8-bit text as it stands in the file, without its closing NUL; nothing for NULL.
using Value = std::optional<std::string>;

/// The values of one record in the order of the table's columns, from 0.
using Row = std::vector<Value>;

} // namespace Sqlite2
