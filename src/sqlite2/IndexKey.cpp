#include "sqlite2/IndexKey.h"

#include "sqlite2/AsciiText.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <string_view>

namespace Sqlite2 {

namespace {

constexpr std::string_view Base64Digits =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz|~";
constexpr int BitsPerDigit = 6;
constexpr int ExponentBias = 1024;
constexpr int MaxMantissaDigits = 10;

constexpr std::string_view Infinity = "0~~~~~~~~~~~~";
constexpr std::string_view NegativeInfinity = "-00";

char Digit(int value)
{
    return Base64Digits[static_cast<std::size_t>(value & 0x3f)];
}

double ToDouble(std::string_view text)
{
    // The library's conversion knows no plus sign.
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc::result_out_of_range)
        return number;

    // Only the stream tells a number that is too large from one that is too small.
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    stream >> number;
    return stream.fail() ? std::copysign(std::numeric_limits<double>::infinity(), number) : number;
}

} // namespace

std::string EncodeNumber(double number)
{
    if (std::isinf(number))
        return std::string(number > 0 ? Infinity : NegativeInfinity);

    const bool isNegative = number < 0;
    int exponent = -ExponentBias;
    double mantissa = 0;
    if (number != 0) {
        // The mantissa comes to lie from 1/128 up to 1/2, so that its first digit, with one half
        // added, never runs over.
        int binaryExponent = 0;
        const double fraction = std::frexp(std::fabs(number), &binaryExponent);
        exponent = static_cast<int>(
            std::floor(static_cast<double>(binaryExponent + BitsPerDigit) / BitsPerDigit));
        mantissa = std::ldexp(fraction, binaryExponent - BitsPerDigit * exponent);
    }

    const int stored = ExponentBias + (isNegative ? -exponent : exponent);
    std::string text{isNegative ? '-' : '0', Digit(stored >> BitsPerDigit), Digit(stored)};
    double rest = 0.5 + (isNegative ? -mantissa : mantissa);
    for (int count = 0; rest > 0 && count < MaxMantissaDigits; ++count) {
        rest *= 1 << BitsPerDigit;
        const int digit = static_cast<int>(rest);
        text.push_back(Digit(digit));
        rest -= digit;
    }
    return text;
}

std::string EncodeIndexValue(const Value &value, TypeClass typeClass)
{
    std::string key;
    if (!value)
        key.assign(1, 'a');
    else if (typeClass == TypeClass::Numeric && IsNumber(*value))
        key = 'b' + EncodeNumber(ToDouble(*value));
    else
        key = 'c' + *value;
    key.push_back('\0');
    return key;
}

} // namespace Sqlite2
