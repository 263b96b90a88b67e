#include "cart/pane/ShoppingCart.h"

#include "base/Errors.h"
#include "browser/WebBrowser.h"
#include "cart/pane/AfterPage.h"
#include "cart/pane/CartToolbars.h"
#include "cart/pane/Log.h"
#include "contact/ContactAction.h"
#include "contact/LastContact.h"
#include "core/Controller.h"

#include <QScopeGuard>
#include <QVBoxLayout>

#include <utility>

namespace Tesk {

namespace {

/// Makes the page report what is typed in the field that has the focus. True when the page had to
/// correct it and says so.
const QString LeaveField = QStringLiteral("(field => {"
                                          " field?.blur();"
                                          " return field?.classList.contains('inError') === true;"
                                          "})(document.activeElement)");

/// The cart that these show or send on is the one that the user has just typed into.
bool KeepsTheCart(CartCommand command)
{
    return command != CartCommand::Load && command != CartCommand::Delete;
}

} // namespace

ShoppingCart::ShoppingCart(const Parts &parts, QWidget *parent)
    : ShoppingCart(parts, {}, parent)
{}

ShoppingCart::ShoppingCart(const Parts &parts, const PagePrinter::SetUp &setUp, QWidget *parent)
    : QWidget(parent)
    , parts(parts)
    , actions(parts.controller, parts.contactServices, *this)
    , toolbars(new CartToolbars)
    , wbShoppingCart(new WebBrowser(parts.profile))
    , printer(setUp ? new PagePrinter(*wbShoppingCart, setUp) : new PagePrinter(*wbShoppingCart))
    , pages(new CartPages({parts.controller, parts.builder, parts.contactServices.lastContact},
                          *wbShoppingCart))
    , afterEdit(new AfterPage(*wbShoppingCart))
{
    wbShoppingCart->setObjectName(QStringLiteral("wbShoppingCart"));
    wbShoppingCart->SetTextLookup(
        [this](const QString &key) { return this->parts.controller.GetText(key); });
    auto *const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(toolbars);
    rows->addWidget(wbShoppingCart, 1);
    setFocusProxy(wbShoppingCart);

    connect(toolbars, &CartToolbars::Pressed, this, &ShoppingCart::Start);
    connect(pages, &CartPages::Loaded, this, &ShoppingCart::UpdateButtons);
    // Written from the cart as it is now.
    connect(pages, &CartPages::Replaced, this, [this] { isShowWaiting = false; });
    connect(pages, &CartPages::Replaced, afterEdit, &AfterPage::GoOn);
    connect(pages, &CartPages::Written, this, &ShoppingCart::PageWritten);
    connect(pages, &CartPages::Failed, this, &ShoppingCart::PageFailed);
    connect(pages, &CartPages::ProductChosen, this, &ShoppingCart::OnProductSelect);
}

ShoppingCart::~ShoppingCart()
{
    // The browser's end may wait for a print, during which no command must be carried out any more.
    delete pages;
    delete afterEdit;
}

void ShoppingCart::InitGui()
{
    const auto getText = [this](const QString &key) { return parts.controller.GetText(key); };
    toolbars->SetCaptions(getText);
    wbShoppingCart->setAccessibleName(getText(QStringLiteral("tabControlShoppingCart")));
}

void ShoppingCart::Initialize()
{
    // A page that is still loading will be written from the cart as it is then, and may carry a
    // command. One that is written already shows an earlier cart.
    isShowWaiting = isCommandRunning || pages->IsWriting();
    if (!isShowWaiting && !pages->IsLoading())
        pages->ShowCart();
}

void ShoppingCart::ShowWaiting()
{
    if (isShowWaiting)
        Initialize();
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
    pages->ShowOrderForm(performPrint);
}

/// A click leaves the focus in the page, and what was typed there is reported later than the click.
/// So the command waits for the report. Another click meanwhile, such as the second one of a double
/// click, is none.
void ShoppingCart::Start(CartCommand command)
{
    if (isCommandRunning)
        return;
    isCommandRunning = true;
    afterEdit->Run(LeaveField, [this, command](const QVariant &isCorrected) {
        // The page's own message would go with the page, and the corrected amount unseen on its
        // way.
        if (isCorrected.toBool() && KeepsTheCart(command))
            EndCommand();
        else
            Perform(command);
    });
}

void ShoppingCart::EndCommand()
{
    isCommandRunning = false;
    ShowWaiting();
}

void ShoppingCart::Perform(CartCommand command)
{
    auto end = qScopeGuard([this] { EndCommand(); });
    switch (command) {
    case CartCommand::Save:
        pages->ShowCart(CartPageAction::Save);
        break;
    case CartCommand::SendRequest:
        pages->ShowCart(CartPageAction::SendRequest);
        break;
    case CartCommand::SendOrder:
        pages->ShowCart(CartPageAction::SendOrder);
        break;
    case CartCommand::Load:
        Load();
        return;
    case CartCommand::ManualAdd:
        AddManually();
        return;
    case CartCommand::Print:
        if (isShowWaiting)
            isPrintRequested = true;
        else
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
        if (isCartChanged)
            pages->ShowChangedCart();
        else
            pages->ShowUnchangedCart();
    });
    isCartChanged = actions.Load();
}

void ShoppingCart::AddManually()
{
    bool isCartChanged = true;
    const auto show = qScopeGuard([&] {
        if (isCartChanged)
            pages->ShowCart();
    });
    isCartChanged = actions.AddManually();
}

void ShoppingCart::Empty()
{
    if (actions.Empty())
        pages->ShowChangedCart();
}

void ShoppingCart::Print()
{
    if (pages->IsUnderWay()) {
        isPrintRequested = true;
        return;
    }
    const QString subject = parts.contactServices.lastContact.subject;
    printer->Print(pages->IsOrderForm() && !subject.isEmpty()
                       ? subject
                       : parts.controller.GetText(QStringLiteral("tabControlShoppingCart")));
}

void ShoppingCart::SendForm(bool isOrder)
{
    const qint32 answer = actions.AskContact(isOrder);
    if (answer == ContactAction::Printed || answer == ContactAction::Sent)
        pages->ShowOrderForm(answer == ContactAction::Printed);
}

void ShoppingCart::PageWritten(CartPageAction action)
{
    const auto end = qScopeGuard([this] { ShowWaiting(); });
    const bool isPrint = std::exchange(isPrintRequested, false) || action == CartPageAction::Print;
    Carry(action);
    if (isPrint)
        Print();
}

void ShoppingCart::Carry(CartPageAction action)
{
    const auto end = qScopeGuard([this] { isCommandRunning = afterEdit->IsWaiting(); });
    switch (action) {
    case CartPageAction::Save:
        actions.Save();
        break;
    case CartPageAction::SendRequest:
        SendForm(false);
        break;
    case CartPageAction::SendOrder:
        SendForm(true);
        break;
    case CartPageAction::None:
    case CartPageAction::Print:
        break;
    }
}

void ShoppingCart::PageFailed()
{
    isPrintRequested = false;
    isShowWaiting = false;
    isCommandRunning = afterEdit->IsWaiting();
}

void ShoppingCart::UpdateButtons()
{
    try {
        toolbars->SetCartFilled(parts.controller.GetShoppingCart().Count() != 0);
    } catch (const CatalogueError &error) {
        qCWarning(cartLog, "the buttons stay as they are: %ls", qUtf16Printable(error.Message()));
    }
}

} // namespace Tesk
