#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Sqlite2 {

/// How a column compares and sorts: text byte by byte, numeric by value where both are numbers.
enum class TypeClass { Numeric, Text };

struct Column
{
    std::string name;
    /// The declared type as it was written, several words and brackets included; may be empty.
    std::string declaredType;

    /// Text when the declared type contains CHAR, TEXT, CLOB or BLOB in any case, else numeric.
    TypeClass Class() const;
};

struct Index
{
    std::string name;
    std::vector<std::string> columns;
    bool isUnique = false;
};

struct Table
{
    std::string name;
    std::vector<Column> columns;
    std::vector<Index> indexes;
    /// Position of the INTEGER PRIMARY KEY column, whose values are the row ids; −1 without one.
    int rowIdColumn = -1;
    std::uint32_t rootPage = 0;
};

} // namespace Sqlite2
