// A cart of 500 lines: its page and its file.

#include "Clock.h"
#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "MeasuredWindow.h"
#include "ShowingWatch.h"
#include "browser/WebBrowser.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/pane/ShoppingCart.h"
#include "support/CartTab.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>

namespace Tesk {

namespace {

constexpr qint16 Lines = 500;

void ClickTab(frmCatalog &window, frmCatalog::Tab tab)
{
    QTabBar *const tabs = window.tabMain->tabBar();
    ClickOn(tabs, tabs->tabRect(tab).center());
}

/// From the click on the tab until the page is painted.
double TimeOfPage(frmCatalog &window)
{
    ClickTab(window, frmCatalog::ProductsTab);
    WebBrowser *const browser = window.ucShoppingCart->Browser();
    ShowingWatch showing(*browser);
    bool isWritten = false;
    QObject context;
    QObject::connect(browser, &WebBrowser::DocumentComplete, &context, [&] {
        showing.Ask(ShowingWatch::Stage::Painted);
        isWritten = true;
    });

    const double begin = Clock::Now();
    ClickTab(window, frmCatalog::CartTab);
    if (!WaitUntil([&] { return isWritten; }))
        qFatal("the cart's page was not filled");
    return showing.Time() - begin;
}

} // namespace

void MeasureCart(const Extent &extent)
{
    MeasuredWindow window(Folders::Limit);
    Controller &controller = window.Catalogue().GetController();
    for (qint16 id = 1; id <= Lines; ++id)
        controller.AddProductToCart(id, 1, QString());
    clsShoppingCart &cart = controller.GetShoppingCart();
    TimeOfPage(window.Catalogue().Window());
    const int shown =
        CartTab(window.Catalogue())
            .Page()
            .Evaluate(QStringLiteral("document.querySelectorAll('#list tr.contListRow').length"))
            .toInt();
    if (shown < Lines)
        qFatal("the cart's page shows %d lines", shown);

    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("cart.csv"));
    clsShoppingCart loadedCart;
    std::vector<double> page;
    std::vector<double> saving;
    std::vector<double> loading;
    for (int run = 0; run < extent.runs; ++run) {
        page.push_back(TimeOfPage(window.Catalogue().Window()));
        const double begin = Clock::Now();
        ShoppingCartFile::Save(cart, file);
        const double saved = Clock::Now();
        ShoppingCartFile::Load(file, loadedCart);
        loading.push_back(Clock::Now() - saved);
        saving.push_back(saved - begin);
    }
    if (loadedCart.Count() != cart.Count())
        qFatal("%d lines were loaded", static_cast<int>(loadedCart.Count()));
    PrintRow({QStringLiteral("cart of 500 lines: click on its tab to its page"), Unit::Milliseconds,
              100, page});
    PrintRow({QStringLiteral("cart of 500 lines: file saved"), Unit::Milliseconds, 20, saving});
    PrintRow({QStringLiteral("cart of 500 lines: file loaded"), Unit::Milliseconds, 20, loading});
}

} // namespace Tesk
