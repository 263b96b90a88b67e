#include "cart/pane/ShoppingCart.h"

#include "base/Errors.h"
#include "browser/WebBrowser.h"
#include "cart/pane/AfterPage.h"
#include "cart/pane/CartMessages.h"
#include "cart/pane/CartToolbars.h"
#include "cart/pane/Log.h"
#include "contact/ContactAction.h"
#include "contact/LastContact.h"
#include "core/Controller.h"
#include "pages/Changes.h"
#include "pages/ControllerPageContext.h"
#include "pages/HtmlBuilder.h"
#include "pages/PageContext.h"

#include <QScopeGuard>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebEngineView>

#include <utility>

namespace Tesk {

namespace {

const QLatin1String ShowCart("/content/shopping_cart.html");
const QLatin1String ShowCartAndSave("/content/shopping_cart.html?action=doSave");
const QLatin1String ShowCartAfterChange("/content/shopping_cart.html?action=doLoad");
const QLatin1String ShowCartAndSendRequest("/content/shopping_cart.html?action=doSendRequest");
const QLatin1String ShowCartAndSendOrder("/content/shopping_cart.html?action=doSendOrder");
const QLatin1String ShowOrderForm("/content/order_form.html");
const QLatin1String ShowAndPrintOrderForm("/content/order_form.html?action=doPrint");

const QLatin1String CartPage("shopping_cart.html");
const QLatin1String OrderFormPage("order_form.html");
const QLatin1String DetailsPage("product_details.html");

/// Makes the page report what is typed in the field that has the focus.
const QString LeaveField =
    QStringLiteral("document.activeElement && document.activeElement.blur()");
const QString Nothing = QStringLiteral("0");

QString WithBreaks(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("<br>"));
}

} // namespace

ShoppingCart::ShoppingCart(const Parts &parts, QWidget *parent)
    : ShoppingCart(parts, {}, parent)
{}

ShoppingCart::ShoppingCart(const Parts &parts, const PagePrinter::SetUp &setUp, QWidget *parent)
    : QWidget(parent)
    , parts(parts)
    , context(MakePageContext(parts.controller))
    , html(*context)
    , actions(parts.controller, parts.contactServices, *this)
    , toolbars(new CartToolbars)
    , wbShoppingCart(new WebBrowser(parts.profile))
    , printer(setUp ? new PagePrinter(*wbShoppingCart, setUp) : new PagePrinter(*wbShoppingCart))
    , afterEdit(new AfterPage(*wbShoppingCart))
    , afterWriting(new AfterPage(*wbShoppingCart))
{
    wbShoppingCart->setObjectName(QStringLiteral("wbShoppingCart"));
    auto *const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(toolbars);
    rows->addWidget(wbShoppingCart, 1);
    setFocusProxy(wbShoppingCart);

    connect(toolbars, &CartToolbars::Pressed, this, &ShoppingCart::Start);
    connect(wbShoppingCart, &WebBrowser::DocumentComplete, this, &ShoppingCart::DocumentComplete);
    connect(wbShoppingCart, &WebBrowser::LoadFailed, this, &ShoppingCart::LoadFailed);
    connect(wbShoppingCart, &WebBrowser::StatusTextChange, this, &ShoppingCart::StatusTextChange);
    connect(wbShoppingCart->View()->page(), &QWebEnginePage::renderProcessTerminated, this,
            [this] { isReloading = requestedAddress.isEmpty(); });
}

ShoppingCart::~ShoppingCart() = default;

clsShoppingCart &ShoppingCart::Cart() const
{
    return parts.controller.GetShoppingCart();
}

void ShoppingCart::InitGui()
{
    const auto getText = [this](const QString &key) { return parts.controller.GetText(key); };
    toolbars->SetCaptions(getText);
    wbShoppingCart->setAccessibleName(getText(QStringLiteral("tabControlShoppingCart")));
}

void ShoppingCart::Initialize()
{
    // What is under way shows the cart as well, and may carry a command.
    if (!isCommandRunning && !IsPageUnderWay())
        Navigate(ShowCart);
}

void ShoppingCart::OnPrint()
{
    Start(CartCommand::Print);
}

void ShoppingCart::OnManualAdd()
{
    Start(CartCommand::ManualAdd);
}

void ShoppingCart::ExtContactCall(bool performPrint)
{
    Navigate(performPrint ? ShowAndPrintOrderForm : ShowOrderForm);
}

void ShoppingCart::Navigate(QLatin1String page)
{
    requestedAddress = parts.controller.GetContentBaseUrl() + page;
    wbShoppingCart->Navigate(requestedAddress);
}

bool ShoppingCart::IsPageUnderWay() const
{
    return !requestedAddress.isEmpty() || afterWriting->IsWaiting();
}

/// A click leaves the focus in the page, and what was typed there is reported later than the click.
/// So the command waits for the report. Another click meanwhile, such as the second one of a double
/// click, is none.
void ShoppingCart::Start(CartCommand command)
{
    if (isCommandRunning)
        return;
    isCommandRunning = true;
    afterEdit->Run(LeaveField, [this, command] { Perform(command); });
}

void ShoppingCart::Perform(CartCommand command)
{
    auto end = qScopeGuard([this] { isCommandRunning = false; });
    switch (command) {
    case CartCommand::Save:
        Navigate(ShowCartAndSave);
        break;
    case CartCommand::SendRequest:
        Navigate(ShowCartAndSendRequest);
        break;
    case CartCommand::SendOrder:
        Navigate(ShowCartAndSendOrder);
        break;
    case CartCommand::Load:
        Load();
        return;
    case CartCommand::ManualAdd:
        AddManually();
        return;
    case CartCommand::Print:
        Print();
        return;
    case CartCommand::Delete:
        Empty();
        return;
    }
    // The page that was asked for carries the command on.
    end.dismiss();
}

void ShoppingCart::Load()
{
    bool isCartChanged = true;
    const auto show = qScopeGuard([&] {
        isPageOutdated = isPageOutdated || isCartChanged;
        Navigate(ShowCartAfterChange);
    });
    isCartChanged = actions.Load();
}

void ShoppingCart::AddManually()
{
    bool isCartChanged = true;
    const auto show = qScopeGuard([&] {
        if (isCartChanged)
            Navigate(ShowCart);
    });
    isCartChanged = actions.AddManually();
}

void ShoppingCart::Empty()
{
    if (!actions.Empty())
        return;
    isPageOutdated = true;
    Navigate(ShowCartAfterChange);
}

void ShoppingCart::Print()
{
    if (IsPageUnderWay()) {
        isPrintRequested = true;
        return;
    }
    const bool isOrderForm = wbShoppingCart->Address().contains(OrderFormPage);
    printer->Print(isOrderForm && !parts.contactServices.lastContact.subject.isEmpty()
                       ? parts.contactServices.lastContact.subject
                       : parts.controller.GetText(QStringLiteral("tabControlShoppingCart")));
}

void ShoppingCart::SendForm(bool isOrder)
{
    const qint32 answer = actions.AskContact(isOrder);
    if (answer == ContactAction::Printed)
        Navigate(ShowAndPrintOrderForm);
    else if (answer == ContactAction::Sent)
        Navigate(ShowOrderForm);
}

ShoppingCart::Action ShoppingCart::ActionOf(const QString &address)
{
    if (address.contains(QLatin1String("action=doSave")))
        return Action::Save;
    if (address.contains(QLatin1String("action=doSendRequest")))
        return Action::SendRequest;
    if (address.contains(QLatin1String("action=doSendOrder")))
        return Action::SendOrder;
    return Action::None;
}

void ShoppingCart::Perform(Action action)
{
    const auto end = qScopeGuard([this] { isCommandRunning = afterEdit->IsWaiting(); });
    switch (action) {
    case Action::None:
        break;
    case Action::Save:
        actions.Save();
        break;
    case Action::SendRequest:
        SendForm(false);
        break;
    case Action::SendOrder:
        SendForm(true);
        break;
    }
}

void ShoppingCart::DocumentComplete(const QString &address)
{
    // Nothing is lost when a page is left before it has confirmed what was written into it.
    afterWriting->GoOn();
    const bool isEngineDone = !wbShoppingCart->View()->page()->isLoading();
    if (address == requestedAddress || isEngineDone)
        requestedAddress.clear();
    const bool isSuperseded = !requestedAddress.isEmpty();
    const bool isReload = std::exchange(isReloading, false);

    UpdateButtons();
    if (!isSuperseded)
        isPageOutdated = false;
    if (address.contains(DetailsPage))
        LeaveToProduct(address);
    else if (!isSuperseded)
        ShowPage(address, isReload);
    // The page that held the field is gone, and what it had to report is here.
    if (!isSuperseded)
        afterEdit->GoOn();
}

void ShoppingCart::ShowPage(const QString &address, bool isReload)
{
    auto failed = qScopeGuard([this] { isCommandRunning = afterEdit->IsWaiting(); });
    Action action = Action::None;
    if (address.contains(CartPage)) {
        WriteCart();
        if (!isReload)
            action = ActionOf(address);
    } else if (address.contains(OrderFormPage)) {
        WriteOrderForm();
        if (!isReload && address.contains(QLatin1String("action=doPrint")))
            isPrintRequested = true;
    }
    failed.dismiss();
    afterWriting->Run(Nothing, [this, action] {
        const bool isPrint = std::exchange(isPrintRequested, false);
        Perform(action);
        if (isPrint)
            Print();
    });
}

void ShoppingCart::LeaveToProduct(const QString &address)
{
    if (requestedAddress.isEmpty())
        Navigate(ShowCart);
    // Some signs of an id stay encoded in an address.
    const QString id = address.mid(address.lastIndexOf(u'=') + 1);
    Q_EMIT OnProductSelect(QUrl::fromPercentEncoding(id.toUtf8()));
}

void ShoppingCart::WriteCart()
{
    wbShoppingCart->Apply(
        {HtmlChange(QStringLiteral("printHeader"),
                    parts.builder.BuildPrintHeader(nullptr, QStringLiteral("wc"))),
         HtmlChange(QStringLiteral("printFooter"), parts.builder.BuildPrintFooter()),
         HtmlChange(QStringLiteral("list"), html.CartList(Cart()))});
}

void ShoppingCart::WriteOrderForm()
{
    const LastContact &contact = parts.contactServices.lastContact;
    wbShoppingCart->Apply(
        {HtmlChange(QStringLiteral("caption"), WithBreaks(contact.subject)),
         HtmlChange(QStringLiteral("summary"), WithBreaks(contact.body)),
         HtmlChange(QStringLiteral("printHeader"),
                    parts.builder.BuildPrintHeader(nullptr, QStringLiteral("wc"))),
         HtmlChange(QStringLiteral("printFooter"), parts.builder.BuildPrintFooter()),
         HtmlChange(QStringLiteral("list"), html.OrderList(Cart()))});
}

void ShoppingCart::UpdateButtons()
{
    try {
        toolbars->SetCartFilled(Cart().Count() != 0);
    } catch (const CatalogueError &error) {
        qCWarning(cartLog, "the buttons stay as they are: %ls", qUtf16Printable(error.Message()));
    }
}

void ShoppingCart::LoadFailed()
{
    requestedAddress.clear();
    isPrintRequested = false;
    isCommandRunning = afterEdit->IsWaiting();
}

void ShoppingCart::StatusTextChange(const QString &text)
{
    if (isPageOutdated)
        qCInfo(cartLog, "\"%ls\" comes from a page that is being left", qUtf16Printable(text));
    else if (CartMessages::IsDeletion(text))
        DeleteLine(text);
    else
        CartMessages::StoreEdit(text, Cart());
}

void ShoppingCart::DeleteLine(const QString &text)
{
    isPageOutdated = true;
    const auto show = qScopeGuard([this] { Navigate(ShowCartAfterChange); });
    CartMessages::DeleteLine(text, Cart());
}

} // namespace Tesk
