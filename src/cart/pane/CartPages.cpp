#include "cart/pane/CartPages.h"

#include "browser/WebBrowser.h"
#include "cart/pane/AfterPage.h"
#include "cart/pane/CartMessages.h"
#include "cart/pane/Log.h"
#include "contact/LastContact.h"
#include "core/Controller.h"
#include "pages/Changes.h"
#include "pages/ControllerPageContext.h"
#include "pages/HtmlBuilder.h"
#include "pages/PageContext.h"

#include <QScopeGuard>
#include <QUrl>
#include <QWebEngineView>

#include <utility>

namespace Tesk {

namespace {

const QLatin1String CartAddress("/content/shopping_cart.html");
const QLatin1String CartToSave("/content/shopping_cart.html?action=doSave");
const QLatin1String ChangedCart("/content/shopping_cart.html?action=doLoad");
const QLatin1String CartToRequest("/content/shopping_cart.html?action=doSendRequest");
const QLatin1String CartToOrder("/content/shopping_cart.html?action=doSendOrder");
const QLatin1String OrderForm("/content/order_form.html");
const QLatin1String OrderFormToPrint("/content/order_form.html?action=doPrint");

const QLatin1String CartName("shopping_cart.html");
const QLatin1String OrderFormName("order_form.html");
const QLatin1String DetailsName("product_details.html");

const QString Nothing = QStringLiteral("0");

QLatin1String AddressFor(CartPageAction action)
{
    switch (action) {
    case CartPageAction::Save:
        return CartToSave;
    case CartPageAction::SendRequest:
        return CartToRequest;
    case CartPageAction::SendOrder:
        return CartToOrder;
    case CartPageAction::None:
    case CartPageAction::Print:
        break;
    }
    return CartAddress;
}

CartPageAction ActionOf(const QString &address)
{
    if (!address.contains(CartName)) {
        const bool isPrint =
            address.contains(OrderFormName) && address.contains(QLatin1String("action=doPrint"));
        return isPrint ? CartPageAction::Print : CartPageAction::None;
    }
    if (address.contains(QLatin1String("action=doSave")))
        return CartPageAction::Save;
    if (address.contains(QLatin1String("action=doSendRequest")))
        return CartPageAction::SendRequest;
    if (address.contains(QLatin1String("action=doSendOrder")))
        return CartPageAction::SendOrder;
    return CartPageAction::None;
}

/// What a person typed, as it was typed.
QString WithBreaks(const QString &text)
{
    return text.toHtmlEscaped().replace(QLatin1String("\r\n"), QLatin1String("<br>"));
}

} // namespace

CartPages::CartPages(const Sources &sources, WebBrowser &browser)
    : QObject(&browser)
    , sources(sources)
    , context(MakePageContext(sources.controller))
    , html(*context)
    , browser(browser)
    , afterWriting(new AfterPage(browser))
{
    connect(&browser, &WebBrowser::DocumentComplete, this, &CartPages::DocumentComplete);
    connect(&browser, &WebBrowser::LoadFailed, this, &CartPages::LoadFailed);
    connect(&browser, &WebBrowser::StatusTextChange, this, &CartPages::StatusTextChange);
    connect(browser.View()->page(), &QWebEnginePage::renderProcessTerminated, this,
            [this] { isReloading = requestedAddress.isEmpty(); });
}

CartPages::~CartPages() = default;

clsShoppingCart &CartPages::Cart() const
{
    return sources.controller.GetShoppingCart();
}

void CartPages::ShowCart(CartPageAction action)
{
    Navigate(AddressFor(action));
}

void CartPages::ShowChangedCart()
{
    isOutdated = true;
    Navigate(ChangedCart);
}

void CartPages::ShowUnchangedCart()
{
    Navigate(ChangedCart);
}

void CartPages::ShowOrderForm(bool isToBePrinted)
{
    Navigate(isToBePrinted ? OrderFormToPrint : OrderForm);
}

void CartPages::Navigate(QLatin1String page)
{
    requestedAddress = sources.controller.GetContentBaseUrl() + page;
    browser.Navigate(requestedAddress);
}

bool CartPages::IsUnderWay() const
{
    return !requestedAddress.isEmpty() || afterWriting->IsWaiting();
}

bool CartPages::IsOrderForm() const
{
    return browser.Address().contains(OrderFormName);
}

void CartPages::DocumentComplete(const QString &address)
{
    // Nothing is lost when a page is left before it has confirmed what was written into it.
    afterWriting->GoOn();
    const bool isEngineDone = !browser.View()->page()->isLoading();
    if (address == requestedAddress || isEngineDone)
        requestedAddress.clear();
    const bool isSuperseded = !requestedAddress.isEmpty();
    const bool isReload = std::exchange(isReloading, false);

    Q_EMIT Loaded();
    if (!isSuperseded)
        isOutdated = false;
    if (address.contains(DetailsName))
        LeaveToProduct(address);
    else if (!isSuperseded)
        Write(address, isReload);
    // The page that held the field is gone, and what it had to report is here.
    if (!isSuperseded)
        Q_EMIT Replaced();
}

void CartPages::Write(const QString &address, bool isReload)
{
    auto failed = qScopeGuard([this] { Q_EMIT Failed(); });
    if (address.contains(CartName))
        WriteCart();
    else if (address.contains(OrderFormName))
        WriteOrderForm();
    failed.dismiss();
    const CartPageAction action = isReload ? CartPageAction::None : ActionOf(address);
    afterWriting->Run(Nothing, [this, action](const QVariant &) { Q_EMIT Written(action); });
}

void CartPages::WriteCart()
{
    browser.Apply({HtmlChange(QStringLiteral("printHeader"),
                              sources.builder.BuildPrintHeader(nullptr, QStringLiteral("wc"))),
                   HtmlChange(QStringLiteral("printFooter"), sources.builder.BuildPrintFooter()),
                   HtmlChange(QStringLiteral("list"), html.CartList(Cart()))});
}

void CartPages::WriteOrderForm()
{
    const LastContact &contact = sources.lastContact;
    browser.Apply({HtmlChange(QStringLiteral("caption"), WithBreaks(contact.subject)),
                   HtmlChange(QStringLiteral("summary"), WithBreaks(contact.body)),
                   HtmlChange(QStringLiteral("printHeader"),
                              sources.builder.BuildPrintHeader(nullptr, QStringLiteral("wc"))),
                   HtmlChange(QStringLiteral("printFooter"), sources.builder.BuildPrintFooter()),
                   HtmlChange(QStringLiteral("list"), html.OrderList(Cart()))});
}

void CartPages::LeaveToProduct(const QString &address)
{
    if (requestedAddress.isEmpty())
        ShowCart();
    // Some signs of an id stay encoded in an address.
    const QString id = address.mid(address.lastIndexOf(u'=') + 1);
    Q_EMIT ProductChosen(QUrl::fromPercentEncoding(id.toUtf8()));
}

void CartPages::LoadFailed()
{
    requestedAddress.clear();
    Q_EMIT Failed();
}

void CartPages::StatusTextChange(const QString &text)
{
    if (isOutdated)
        qCInfo(cartLog, "\"%ls\" comes from a page that is being left", qUtf16Printable(text));
    else if (CartMessages::IsDeletion(text))
        DeleteLine(text);
    else
        CartMessages::StoreEdit(text, Cart());
}

void CartPages::DeleteLine(const QString &text)
{
    const auto show = qScopeGuard([this] { ShowChangedCart(); });
    CartMessages::DeleteLine(text, Cart());
}

} // namespace Tesk
