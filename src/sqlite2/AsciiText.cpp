#include "sqlite2/AsciiText.h"

#include <algorithm>

namespace Sqlite2 {

namespace {

void SkipSign(std::string_view &text)
{
    if (text.starts_with('+') || text.starts_with('-'))
        text.remove_prefix(1);
}

/// Removes the digits at the front and says whether there were any.
bool SkipDigits(std::string_view &text)
{
    const auto end = std::ranges::find_if_not(text, IsDigit);
    const auto count = static_cast<std::size_t>(end - text.begin());
    text.remove_prefix(count);
    return count > 0;
}

} // namespace

char ToUpper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string ToUpper(std::string_view text)
{
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), [](char c) { return ToUpper(c); });
    return upper;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right)
{
    return std::ranges::equal(
        left, right, {}, [](char c) { return ToUpper(c); }, [](char c) { return ToUpper(c); });
}

bool IsNumber(std::string_view text)
{
    SkipSign(text);
    if (!SkipDigits(text))
        return false;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        if (!SkipDigits(text))
            return false;
    }
    if (text.starts_with('e') || text.starts_with('E')) {
        text.remove_prefix(1);
        SkipSign(text);
        if (!SkipDigits(text))
            return false;
    }
    return text.empty();
}

} // namespace Sqlite2
