#include "cart/pane/CartAddress.h"

#include <QUrl>

#include <array>

namespace Tesk::CartAddress {

namespace {

const QLatin1String CartName("shopping_cart.html");
const QLatin1String OrderFormName("order_form.html");
const QLatin1String DetailsName("product_details.html");

const QLatin1String LoadMark("action=doLoad");
const QLatin1String PrintMark("action=doPrint");

struct ActionMark
{
    CartPageAction action;
    QLatin1String text;
};

/// The actions of the cart's page.
constexpr std::array CartMarks{
    ActionMark{CartPageAction::Save, QLatin1String("action=doSave")},
    ActionMark{CartPageAction::SendRequest, QLatin1String("action=doSendRequest")},
    ActionMark{CartPageAction::SendOrder, QLatin1String("action=doSendOrder")}};

QString Page(QLatin1String name, QLatin1String mark = {})
{
    const QString page = QLatin1String("/content/") + name;
    return mark.isEmpty() ? page : page + u'?' + mark;
}

} // namespace

QString Cart(CartPageAction action)
{
    for (const ActionMark &mark : CartMarks) {
        if (mark.action == action)
            return Page(CartName, mark.text);
    }
    return Page(CartName);
}

QString ChangedCart()
{
    return Page(CartName, LoadMark);
}

QString OrderForm(bool isToBePrinted)
{
    return isToBePrinted ? Page(OrderFormName, PrintMark) : Page(OrderFormName);
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
    for (const ActionMark &mark : CartMarks) {
        if (address.contains(mark.text))
            return mark.action;
    }
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
