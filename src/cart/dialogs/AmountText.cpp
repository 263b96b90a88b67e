#include "cart/dialogs/AmountText.h"

#include "base/Errors.h"
#include "base/Numbers.h"

#include <QRegularExpression>

namespace Tesk {

namespace {

/// "1.000" is a thousand to one user and one to the other; "0.500" and "1.50" are read alike by
/// all.
bool MayBeThousands(const QString &text)
{
    static const QRegularExpression thousands(
        QStringLiteral("^\\s*[+-]?[1-9][0-9]{0,2}[.,][0-9]{3}\\s*$"));
    return thousands.match(text).hasMatch();
}

} // namespace

std::optional<double> AmountOf(QString text)
{
    if (MayBeThousands(text))
        return std::nullopt;
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    try {
        return ToDouble(text);
    } catch (const ConversionError &) {
        // What is no number is the caller's to answer, like a number outside its bounds.
        return std::nullopt;
    }
}

} // namespace Tesk
