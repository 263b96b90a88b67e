#include "base/Numbers.h"

#include "base/Errors.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace Tesk {

double RoundHalfEven(double value)
{
    // Unlike std::nearbyint, independent of the rounding mode that a library may have set.
    return value - std::remainder(value, 1.0);
}

qint16 ToInt16(double value)
{
    const double rounded = RoundHalfEven(value);
    // Written so that "not a number" fails it too.
    const bool isInRange = rounded >= std::numeric_limits<qint16>::min() &&
                           rounded <= std::numeric_limits<qint16>::max();
    if (!isInRange)
        throw ConversionError(
            QStringLiteral("The number %1 is out of range. Use whole numbers from -32768 to 32767.")
                .arg(value),
            {QStringLiteral("errorNumberRange"), {QString::number(value)}});
    return static_cast<qint16>(rounded);
}

qint16 ToInt16(QStringView text)
{
    return ToInt16(ToDouble(text));
}

double ToDouble(QStringView text)
{
    return ToDouble(text, QLocale::c());
}

double ToDouble(QStringView text, const QLocale &locale)
{
    QLocale strict = locale;
    strict.setNumberOptions(QLocale::RejectGroupSeparator);
    bool isNumber = false;
    const double value = strict.toDouble(text.trimmed(), &isNumber);
    if (!isNumber || !std::isfinite(value))
        throw ConversionError(
            QStringLiteral("\"%1\" is not a number. Use digits and \"%2\" as the decimal mark.")
                .arg(text, strict.decimalPoint()),
            {QStringLiteral("errorNoNumber"), {text.toString(), strict.decimalPoint()}});
    return value;
}

} // namespace Tesk
