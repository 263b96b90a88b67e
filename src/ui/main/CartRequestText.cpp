#include "ui/main/CartRequestText.h"

namespace Tesk::CartRequestText {

std::optional<QString> ProductId(const QString &statusText)
{
    if (!statusText.contains(QLatin1String("shoppingCart")))
        return std::nullopt;
    return statusText.mid(statusText.lastIndexOf(u':') + 1);
}

} // namespace Tesk::CartRequestText
