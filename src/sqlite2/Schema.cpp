#include "sqlite2/Schema.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Sqlite2 {

namespace {

constexpr std::array<std::string_view, 4> textTypeMarks{"CHAR", "TEXT", "CLOB", "BLOB"};

char UpperAscii(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

TypeClass Column::Class() const
{
    std::string upperType = declaredType;
    std::ranges::transform(upperType, upperType.begin(), UpperAscii);
    const bool isText = std::ranges::any_of(textTypeMarks, [&](std::string_view mark) {
        return upperType.find(mark) != std::string::npos;
    });
    return isText ? TypeClass::Text : TypeClass::Numeric;
}

} // namespace Sqlite2
