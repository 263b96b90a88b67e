#include "sqlite2/Schema.h"

#include "sqlite2/AsciiText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Sqlite2 {

namespace {

constexpr std::array<std::string_view, 4> TextTypeMarks{"CHAR", "TEXT", "CLOB", "BLOB"};

} // namespace

TypeClass Column::Class() const
{
    const std::string upperType = ToUpper(declaredType);
    const bool isText = std::ranges::any_of(TextTypeMarks, [&](std::string_view mark) {
        return upperType.find(mark) != std::string::npos;
    });
    return isText ? TypeClass::Text : TypeClass::Numeric;
}

} // namespace Sqlite2
