#include "cart/dialogs/AmountText.h"

#include "base/Errors.h"
#include "base/Numbers.h"

namespace Tesk {

std::optional<double> AmountOf(QString text)
{
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    try {
        return ToDouble(text);
    } catch (const ConversionError &) {
        // What is no number is the caller's to answer, like a number outside its bounds.
        return std::nullopt;
    }
}

} // namespace Tesk
