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
#include <QWebEngineView>

#include <optional>
#include <utility>

namespace Tesk {

namespace {

const QString Nothing = QStringLiteral("0");

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
            [this](QWebEnginePage::RenderProcessTerminationStatus status) {
                if (status != QWebEnginePage::NormalTerminationStatus)
                    isReloading = requestedAddress.isEmpty();
            });
}

CartPages::~CartPages() = default;

clsShoppingCart &CartPages::Cart() const
{
    return sources.controller.GetShoppingCart();
}

void CartPages::ShowCart(CartPageAction action)
{
    Navigate(CartAddress::Cart(action));
}

void CartPages::ShowChangedCart()
{
    isOutdated = true;
    Navigate(CartAddress::ChangedCart());
}

void CartPages::ShowUnchangedCart()
{
    Navigate(CartAddress::ChangedCart());
}

void CartPages::ShowOrderForm(bool isToBePrinted)
{
    Navigate(CartAddress::OrderForm(isToBePrinted));
}

void CartPages::Navigate(const QString &page)
{
    requestedAddress = sources.controller.GetContentBaseUrl() + page;
    browser.Navigate(requestedAddress);
}

bool CartPages::IsLoading() const
{
    return !requestedAddress.isEmpty();
}

bool CartPages::IsWriting() const
{
    return !IsLoading() && afterWriting->IsWaiting();
}

bool CartPages::IsOrderForm() const
{
    return CartAddress::IsOrderForm(browser.Address());
}

void CartPages::DocumentComplete(const QString &address)
{
    // A page that was left before it had confirmed what was written into it loses no command by
    // that. The command may ask the user, and fail: this page does not depend on it.
    afterWriting->GoOnSoon();
    const bool isRequested = address == requestedAddress;
    const bool isEngineDone = !browser.View()->page()->isLoading();
    if (isRequested || isEngineDone)
        requestedAddress.clear();
    const bool isSuperseded = !requestedAddress.isEmpty();
    const bool isReload = std::exchange(isReloading, false) && !isRequested;

    Q_EMIT Loaded();
    if (!isSuperseded)
        isOutdated = false;
    if (const std::optional<QString> id = CartAddress::ProductId(address)) {
        LeaveToProduct(*id);
        return;
    }
    if (isSuperseded)
        return;
    Write(address, isReload);
    // The page that held the field is gone, and what it had to report is here.
    Q_EMIT Replaced();
}

void CartPages::Write(const QString &address, bool isReload)
{
    auto failed = qScopeGuard([this] { Q_EMIT Failed(); });
    if (CartAddress::IsCart(address))
        WriteCart();
    else if (CartAddress::IsOrderForm(address))
        WriteOrderForm();
    failed.dismiss();
    const CartPageAction action = isReload ? CartPageAction::None : CartAddress::ActionOf(address);
    afterWriting->Run(Nothing, [this, action](const QVariant &) {
        if (requestedAddress.isEmpty())
            isOutdated = false;
        Q_EMIT Written(action);
    });
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

void CartPages::LeaveToProduct(const QString &id)
{
    if (requestedAddress.isEmpty())
        ShowCart();
    Q_EMIT ProductChosen(id);
}

void CartPages::LoadFailed()
{
    requestedAddress.clear();
    isReloading = false;
    // The old page may stay. It lacks what was added since, and until it has the cart's keys again,
    // what is typed in it would be lost.
    if (isOutdated || CartAddress::IsCart(browser.Address()))
        Write(browser.Address(), true);
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
