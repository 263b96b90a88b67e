// A cart of 500 lines: its page and its file.

#include "Clock.h"
#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "MeasuredWindow.h"
#include "SavedPage.h"
#include "ShowingWatch.h"
#include "WatchedProgram.h"
#include "browser/WebBrowser.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/pane/ShoppingCart.h"
#include "support/CartTab.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QWebEngineView>

namespace Tesk {

namespace {

constexpr qint16 Lines = 500;

void ClickTab(frmCatalog &window, frmCatalog::Tab tab)
{
    QTabBar *const tabs = window.tabMain->tabBar();
    ClickOn(tabs, tabs->tabRect(tab).center());
}

/// The times until the page is painted.
struct PageTime
{
    double fromClick = 0;    ///< on the tab
    double fromTemplate = 0; ///< since the template has loaded, into which the cart is written
};

PageTime TimeOfPage(frmCatalog &window)
{
    ClickTab(window, frmCatalog::ProductsTab);
    WebBrowser *const browser = window.ucShoppingCart->Browser();
    ShowingWatch showing(*browser);
    bool isWritten = false;
    double loaded = 0;
    QObject context;
    QObject::connect(browser->View(), &QWebEngineView::loadFinished, &context,
                     [&] { loaded = Clock::Now(); });
    QObject::connect(browser, &WebBrowser::DocumentComplete, &context, [&] {
        showing.Ask(ShowingWatch::Stage::Painted);
        isWritten = true;
    });

    const double begin = Clock::Now();
    ClickTab(window, frmCatalog::CartTab);
    if (!WaitUntil([&] { return isWritten; }))
        qFatal("the cart's page was not filled");
    const double shown = showing.Time();
    return {shown - begin, shown - loaded};
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

    Save(SavedPage::LongCart, CartTab(window.Catalogue()).Page(),
         Folders::Limit + QLatin1String("/resources.chm"));
    WatchedProgram bareWindow(Folders::BareWindow,
                              {QString::fromUtf8(AddressOf(SavedPage::Welcome))});
    bareWindow.WaitFor("shown");

    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("cart.csv"));
    clsShoppingCart loadedCart;
    std::vector<double> page;
    std::vector<double> click;
    std::vector<double> bare;
    std::vector<double> saving;
    std::vector<double> loading;
    for (int run = 0; run < extent.runs; ++run) {
        bareWindow.Tell(AddressOf(SavedPage::LongCart));
        bare.push_back(bareWindow.WaitFor("shown"));
        bareWindow.Tell(AddressOf(SavedPage::Welcome));
        bareWindow.WaitFor("shown");
        const PageTime time = TimeOfPage(window.Catalogue().Window());
        page.push_back(time.fromTemplate);
        click.push_back(time.fromClick);
        const double begin = Clock::Now();
        ShoppingCartFile::Save(cart, file);
        const double saved = Clock::Now();
        ShoppingCartFile::Load(file, loadedCart);
        loading.push_back(Clock::Now() - saved);
        saving.push_back(saved - begin);
    }
    if (loadedCart.Count() != cart.Count())
        qFatal("%d lines were loaded", static_cast<int>(loadedCart.Count()));
    PrintRow({QStringLiteral("cart of 500 lines: page built and shown"), Unit::Milliseconds, 100,
              page,
              QStringLiteral("with the click on its tab and the template's loading %1 ms; a bare "
                             "window loads the finished page in %2 ms")
                  .arg(Median(click), 0, 'f', 0)
                  .arg(Median(bare), 0, 'f', 0)});
    PrintRow({QStringLiteral("cart of 500 lines: file saved"), Unit::Milliseconds, 20, saving});
    PrintRow({QStringLiteral("cart of 500 lines: file loaded"), Unit::Milliseconds, 20, loading});
}

} // namespace Tesk
