#pragma once

#include <QString>

#include <optional>

namespace Tesk {

/// The bounds of an amount in the cart's rows, as users type it.
inline constexpr qint16 SmallestAmount = 1;
inline constexpr qint16 LargestAmount = 999;

/// The number that an amount field's text holds; nothing for text that is no number. Point and
/// comma both part the decimals, whatever the user's locale; groups of digits cannot be parted.
/// Text that looks like thousands ("1.000", "12,500") is no number: nobody's thousand becomes a
/// one.
std::optional<double> AmountOf(QString text);

} // namespace Tesk
