#include "support/CartTab.h"

#include "browser/WebBrowser.h"
#include "cart/pane/ShoppingCart.h"
#include "support/CatalogueWindow.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

namespace Tesk {

namespace {

const QString CartPage = QStringLiteral("shopping_cart.html");
const QString OrderForm = QStringLiteral("order_form.html");

} // namespace

CartTab::CartTab(CatalogueWindow &catalogue)
    : catalogue(catalogue)
    , page(*catalogue.Window().ucShoppingCart->Browser())
{}

bool CartTab::Open()
{
    return page.WaitForPageAfter(CartPage, [this] {
        QTabBar *const tabs = catalogue.Window().tabMain->tabBar();
        ClickOn(tabs, tabs->tabRect(frmCatalog::CartTab).center());
    });
}

bool CartTab::IsCurrent() const
{
    return catalogue.Window().tabMain->currentIndex() == frmCatalog::CartTab;
}

QPushButton *CartTab::Button(const char *name) const
{
    return catalogue.Window().ucShoppingCart->findChild<QPushButton *>(QLatin1String(name));
}

void CartTab::Press(const char *button)
{
    ClickOn(Button(button));
}

QStringList CartTab::Lines()
{
    return page
        .Evaluate(
            QStringLiteral(
                "[...document.querySelectorAll('#list tr.contListRow')].map(row =>"
                " [...row.cells].map(cell => (cell.querySelector('input')?.value ?? cell.innerText)"
                "  .replace(/\\s+/g, ' ').trim()).filter(text => text !== '').join('|'))"),
            PageUser::PollLimit)
        .toStringList();
}

bool CartTab::WaitForLines(const QStringList &expected)
{
    return WaitForLines(CartPage, expected);
}

bool CartTab::WaitForOrderForm(const QStringList &expected)
{
    return WaitForLines(OrderForm, expected);
}

bool CartTab::WaitForText(const QString &text)
{
    return WaitUntil([&] {
        return page.Evaluate(QStringLiteral("document.getElementById('list')?.innerText"),
                             PageUser::PollLimit)
                   .toString()
                   .trimmed() == text;
    });
}

bool CartTab::WaitForLines(const QString &addressPart, const QStringList &expected)
{
    WebBrowser *const browser = catalogue.Window().ucShoppingCart->Browser();
    const bool isShown = WaitUntil(
        [&] { return browser->Address().contains(addressPart) && Lines() == expected; }, 5000);
    if (!isShown)
        qWarning().noquote() << "The page" << browser->Address() << "shows\n"
                             << Lines().join(u'\n') << "\nin place of\n"
                             << expected.join(u'\n');
    return isShown;
}

} // namespace Tesk
