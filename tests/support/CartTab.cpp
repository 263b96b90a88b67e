#include "support/CartTab.h"

#include "browser/WebBrowser.h"
#include "cart/pane/ShoppingCart.h"
#include "support/CatalogueWindow.h"
#include "support/UserActions.h"

#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

namespace Tesk {

namespace {

const QString CartPage = QStringLiteral("shopping_cart.html");
const QString OrderForm = QStringLiteral("order_form.html");

const QString LinesOfThePage = QStringLiteral(
    "[...document.querySelectorAll('#list tr.contListRow')].map(row =>"
    " [...row.cells].map(cell => (cell.querySelector('input')?.value ?? cell.innerText)"
    "  .replace(/\\s+/g, ' ').trim()).filter(text => text !== '').join('|'))");

} // namespace

CartTab::CartTab(CatalogueWindow &catalogue)
    : catalogue(catalogue)
    , page(*catalogue.Window().ucShoppingCart->Browser())
{}

bool CartTab::Open()
{
    const bool isOpen = page.WaitForPageAfter(CartPage, [this] {
        QTabBar *const tabs = catalogue.Window().tabMain->tabBar();
        ClickOn(tabs, tabs->tabRect(frmCatalog::CartTab).center());
    });
    if (!isOpen)
        qWarning("The cart does not come; tab %d is shown.",
                 catalogue.Window().tabMain->currentIndex());
    return isOpen;
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
    return page.Evaluate(LinesOfThePage).toStringList();
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
    return page.WaitForValue(
        QString(), QStringLiteral("document.getElementById('list')?.innerText"),
        [&](const QVariant &shown) { return shown.toString().trimmed() == text; });
}

bool CartTab::WaitForLines(const QString &addressPart, const QStringList &expected)
{
    const bool isShown = page.WaitForValue(addressPart, LinesOfThePage, [&](const QVariant &lines) {
        return lines.toStringList() == expected;
    });
    if (!isShown)
        qWarning().noquote() << "Expected were\n" << expected.join(u'\n');
    return isShown;
}

} // namespace Tesk
