#include "cart/pane/CartAddress.h"

#include <QUrl>

namespace Tesk::CartAddress {

namespace {

const QLatin1String CartName("shopping_cart.html");
const QLatin1String OrderFormName("order_form.html");
const QLatin1String DetailsName("product_details.html");

const QLatin1String SaveMark("action=doSave");
const QLatin1String SendRequestMark("action=doSendRequest");
const QLatin1String SendOrderMark("action=doSendOrder");
const QLatin1String PrintMark("action=doPrint");

} // namespace

QLatin1String Cart(CartPageAction action)
{
    switch (action) {
    case CartPageAction::Save:
        return QLatin1String("/content/shopping_cart.html?action=doSave");
    case CartPageAction::SendRequest:
        return QLatin1String("/content/shopping_cart.html?action=doSendRequest");
    case CartPageAction::SendOrder:
        return QLatin1String("/content/shopping_cart.html?action=doSendOrder");
    case CartPageAction::None:
    case CartPageAction::Print:
        break;
    }
    return QLatin1String("/content/shopping_cart.html");
}

QLatin1String ChangedCart()
{
    return QLatin1String("/content/shopping_cart.html?action=doLoad");
}

QLatin1String OrderForm(bool isToBePrinted)
{
    return isToBePrinted ? QLatin1String("/content/order_form.html?action=doPrint")
                         : QLatin1String("/content/order_form.html");
}

bool IsCart(const QString &address)
{
    return address.contains(CartName);
}

bool IsOrderForm(const QString &address)
{
    return !IsCart(address) && address.contains(OrderFormName);
}

CartPageAction ActionOf(const QString &address)
{
    if (IsOrderForm(address) && address.contains(PrintMark))
        return CartPageAction::Print;
    if (!IsCart(address))
        return CartPageAction::None;
    if (address.contains(SaveMark))
        return CartPageAction::Save;
    if (address.contains(SendRequestMark))
        return CartPageAction::SendRequest;
    if (address.contains(SendOrderMark))
        return CartPageAction::SendOrder;
    return CartPageAction::None;
}

std::optional<QString> ProductId(const QString &address)
{
    if (!address.contains(DetailsName))
        return std::nullopt;
    // Some signs of an id stay encoded in an address.
    const QString id = address.mid(address.lastIndexOf(u'=') + 1);
    return QUrl::fromPercentEncoding(id.toUtf8());
}

} // namespace Tesk::CartAddress
