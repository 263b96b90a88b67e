#include "MonkeySession.h"

#include "browser/PagePrinter.h"
#include "browser/WebBrowser.h"
#include "cart/pane/AfterPage.h"
#include "cart/pane/CartPages.h"
#include "cart/pane/ShoppingCart.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/PageProtocol.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QTabBar>
#include <QTabWidget>
#include <QWebEngineView>

#include <algorithm>

namespace Tesk {

namespace {

/// A window that needs longer is stuck, on a loaded machine and under a sanitizer too.
constexpr int Patience = 60000; // milliseconds

template <typename Type, typename Condition>
bool AnyOf(const QObject *parent, Condition condition)
{
    const auto children = parent->findChildren<Type *>();
    return std::any_of(children.begin(), children.end(), condition);
}

bool IsPrinting(const WebBrowser &browser)
{
    return AnyOf<PagePrinter>(&browser,
                              [](const PagePrinter *printer) { return printer->IsPrinting(); });
}

bool IsLoading(const WebBrowser &browser)
{
    return browser.View()->page()->isLoading();
}

} // namespace

MonkeySession::MonkeySession(const QString &applicationDirectory)
    : catalogue(applicationDirectory)
    , articles(catalogue)
    , model(articles)
    , files(model)
    , witness({catalogue, articles, files, model, findings})
    , dialogs({catalogue, articles, files, model, witness, findings})
    , cart(catalogue)
{
    FollowFills();
    if (!catalogue.WaitForFilledPage(QStringLiteral("welcome.html")))
        findings.Fail(QStringLiteral("the welcome page does not come"));
}

MonkeySession::~MonkeySession() = default;

WebBrowser &MonkeySession::CartPage()
{
    return *Window().ucShoppingCart->Browser();
}

void MonkeySession::FollowFills()
{
    connect(Window().wbMain, &WebBrowser::DocumentComplete, this, [this](const QString &address) {
        isFillPending = false;
        for (const char *page : {"category_list.html", "product_list.html", "product_details.html"})
            isFillPending = isFillPending || address.contains(QLatin1String(page));
    });
    connect(Window().wbMain, &WebBrowser::LoadFailed, this, [this] { isFillPending = false; });
    connect(&Window().Protocol(), &PageProtocol::PageFilled, this,
            [this] { isFillPending = false; });
}

/// Empty when the window waits for its user.
QString MonkeySession::WhatIsUnderWay()
{
    if (const QWidget *const popup = QApplication::activePopupWidget())
        return QStringLiteral("a %1 is open").arg(QLatin1String(popup->metaObject()->className()));
    if (const QWidget *const dialog = QApplication::activeModalWidget())
        return QStringLiteral("the dialog \"%1\" is open").arg(dialog->windowTitle());
    if (IsLoading(Page()))
        return QStringLiteral("a page is loading");
    if (isFillPending)
        return QStringLiteral("the page %1 is not filled").arg(Page().Address());
    if (IsLoading(CartPage()))
        return QStringLiteral("the cart's page is loading");
    if (AnyOf<CartPages>(&CartPage(), [](const CartPages *pages) { return pages->IsUnderWay(); }))
        return QStringLiteral("the cart's page is not written");
    if (AnyOf<AfterPage>(&CartPage(), [](const AfterPage *step) { return step->IsWaiting(); }))
        return QStringLiteral("the cart's page has not answered");
    return QString();
}

void MonkeySession::Rest()
{
    const QDeadlineTimer deadline(Patience);
    do {
        WaitUntil([this] { return WhatIsUnderWay().isEmpty(); },
                  static_cast<int>(deadline.remainingTime()));
        // What the pages have reported comes before their answer.
        for (WebBrowser *const browser : {&Page(), &CartPage()})
            PageUser(*browser).Evaluate(QStringLiteral("0"), Patience);
    } while (!WhatIsUnderWay().isEmpty() && !deadline.hasExpired());
    const QString reason = WhatIsUnderWay();
    if (!reason.isEmpty())
        findings.Fail(QStringLiteral("the window is stuck: ") + reason);
    findings.EndErrors();
    witness.Rest();
    CheckCart();
    CheckCartPage();
}

/// Keys and clicks reach a page on another way than questions, and may be answered later.
void MonkeySession::CheckCart()
{
    const QStringList expected = model.Lines();
    QStringList held;
    const auto isHeld = [&] {
        held = CartModel::LinesOf(catalogue.GetController().GetShoppingCart());
        return held == expected;
    };
    if (!WaitUntil(isHeld, Patience))
        findings.Fail(QStringLiteral("the cart holds\n%1\nin place of\n%2")
                          .arg(held.join(u'\n'), expected.join(u'\n')));
}

/// The page in sight shows the cart as it is. The order form holds no fields.
void MonkeySession::CheckCartPage()
{
    if (Window().tabMain->currentIndex() != WindowControls::CartTab)
        return;
    QStringList expected;
    for (const QString &line : model.Lines())
        expected.append(line.section(u'|', 1));
    QStringList shown;
    const auto isShown = [&] {
        shown =
            PageUser(CartPage())
                .Evaluate(QStringLiteral(
                              "[...document.querySelectorAll('#list tr.contListRow')].map(row =>"
                              " row.querySelector('.amountField')?.value + '|' +"
                              " row.querySelector('.catField')?.value)"),
                          Patience)
                .toStringList();
        return shown == expected ||
               !CartPage().Address().contains(QLatin1String("shopping_cart.html"));
    };
    if (!WaitUntil(isShown, Patience))
        findings.Fail(QStringLiteral("the cart's page shows\n%1\nin place of\n%2")
                          .arg(shown.join(u'\n'), expected.join(u'\n')));
}

void MonkeySession::WaitForPrints()
{
    if (!WaitUntil([this] { return !IsPrinting(Page()) && !IsPrinting(CartPage()); }, Patience))
        findings.Fail(QStringLiteral("a print does not end"));
}

void MonkeySession::OpenTab(WindowControls::Tab tab)
{
    QTabBar *const tabs = Window().tabMain->tabBar();
    if (tabs->currentIndex() != tab)
        ClickOn(tabs, tabs->tabRect(tab).center());
}

} // namespace Tesk
