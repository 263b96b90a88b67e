#pragma once

#include <QString>
#include <QStringView>

class QLocale;

namespace Tesk {

/// A whole number in 16 bits from decimal text, read as ToDouble(QStringView) reads it and rounded,
/// halves to the even neighbour. Throws ConversionError for other text and when the rounded number
/// is outside −32768..32767.
qint16 ToInt16(QStringView text);
/// The value rounded to a whole number, halves to even. Throws ConversionError outside the range.
qint16 ToInt16(double value);

/// The nearest whole number; halves go to the even neighbour (2.5 → 2, 3.5 → 4).
double RoundHalfEven(double value);

/// A number of the database: decimal point, optional sign and exponent, surrounding blanks allowed.
/// Throws ConversionError for anything else: empty text, infinity and "not a number" included.
double ToDouble(QStringView text);

/// A number that the user typed, in the notation of the locale; group separators are refused.
/// Surrounding blanks are allowed. Throws ConversionError for anything else.
double ToDouble(QStringView text, const QLocale &locale);

} // namespace Tesk
