#pragma once

#include <string>
#include <string_view>

/// Text as version 2 sees it: bytes, of which only A to Z have two cases.
namespace Sqlite2 {

char ToUpper(char c);
std::string ToUpper(std::string_view text);
bool EqualIgnoringCase(std::string_view left, std::string_view right);

constexpr bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Whether the text is, whole, a number to version 2: a sign or none, digits, a fraction or none,
/// an exponent or none. No blanks; digits on either side of the point.
bool IsNumber(std::string_view text);

} // namespace Sqlite2
