#include "core/database/Collations.h"

#include "base/CodePage.h"
#include "sqlite2/AsciiText.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <string>

namespace Tesk::Database {

namespace {

/// Whether the text is a whole number that no other text equals. Ids and lengths are.
bool IsPlainNumber(std::string_view text)
{
    constexpr size_t maxDigits = 15; // exact as a double too
    if (text.empty() || text.size() > maxDigits || (text.front() == '0' && text.size() > 1))
        return false;
    // The name of the function alone would be called for each character.
    return std::all_of(text.begin(), text.end(), [](char c) { return Sqlite2::IsDigit(c); });
}

std::optional<double> NumberOf(std::string_view text)
{
    if (!Sqlite2::IsNumber(text))
        return std::nullopt;
    if (text.front() == '+')
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    // Too large or too small for a double: strtod answers infinity or zero.
    return error == std::errc() ? value : std::strtod(std::string(text).c_str(), nullptr);
}

template <typename Number>
int Compare(Number left, Number right)
{
    return static_cast<int>(left > right) - static_cast<int>(left < right);
}

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80U;
}

/// The code in the code page of the UTF-8 character that begins at `position`.
int CodeAt(std::string_view text, size_t position)
{
    size_t end = position + 1;
    while (end < text.size() && IsContinuation(text[end]))
        ++end;
    const QString character =
        QString::fromUtf8(text.data() + position, static_cast<qsizetype>(end - position));
    return character.isEmpty() ? 0 : CodePage::CodeOf(character.front());
}

template <int compare(std::string_view, std::string_view)>
int Collate(void *, int leftSize, const void *left, int rightSize, const void *right)
{
    return compare({static_cast<const char *>(left), static_cast<size_t>(leftSize)},
                   {static_cast<const char *>(right), static_cast<size_t>(rightSize)});
}

} // namespace

int CompareNumeric(std::string_view left, std::string_view right)
{
    // A search for an id compares a dozen times, with numbers of as many digits mostly.
    if (IsPlainNumber(left) && IsPlainNumber(right))
        return left.size() == right.size() ? left.compare(right)
                                           : Compare(left.size(), right.size());

    const auto leftNumber = NumberOf(left);
    const auto rightNumber = NumberOf(right);
    if (leftNumber && rightNumber)
        return Compare(*leftNumber, *rightNumber);
    if (leftNumber || rightNumber)
        return leftNumber ? -1 : 1;
    return CompareText(left, right);
}

int CompareText(std::string_view left, std::string_view right)
{
    const auto [leftEnd, rightEnd] =
        std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    if (leftEnd == left.end() || rightEnd == right.end())
        return Compare(left.size(), right.size());

    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80U; };
    if (isAscii(*leftEnd) && isAscii(*rightEnd))
        return Compare(*leftEnd, *rightEnd);

    // UTF-8 orders some characters otherwise than the code page does, œ and é among them.
    auto position = static_cast<size_t>(leftEnd - left.begin());
    while (position > 0 && (IsContinuation(left[position]) || IsContinuation(right[position])))
        --position;
    return Compare(CodeAt(left, position), CodeAt(right, position));
}

void RegisterCollations(sqlite3 *connection)
{
    sqlite3_create_collation_v2(connection, NumericCollation, SQLITE_UTF8, nullptr,
                                &Collate<CompareNumeric>, nullptr);
    sqlite3_create_collation_v2(connection, TextCollation, SQLITE_UTF8, nullptr,
                                &Collate<CompareText>, nullptr);
}

} // namespace Tesk::Database
