// From a click to the page that it leads to.

#include "Clock.h"
#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "MeasuredWindow.h"
#include "SavedPage.h"
#include "WatchedProgram.h"
#include "browser/WebBrowser.h"
#include "cart/pane/ShoppingCart.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/HeaderBand.h"

#include <QPushButton>

#include <algorithm>

namespace Tesk {

namespace {

const QString ListPage = QStringLiteral("product_list.html");

PageTimes TimesOfList(MeasuredWindow &window, const CategoryNode *category)
{
    window.GoHome();
    window.PointTo(category);
    return window.TimesOf(ListPage, [&] { window.Click(category); });
}

/// From a page that is open already: starting is another figure.
double TimeOfBareList(WatchedProgram &bare)
{
    bare.Tell(AddressOf(SavedPage::Welcome));
    bare.WaitFor("shown");
    bare.Tell(AddressOf(SavedPage::List));
    return bare.WaitFor("shown");
}

/// Until the list and the cart's page are there in the other language.
double TimeOfLanguage(MeasuredWindow &window, int language)
{
    WebBrowser *const cart = window.Catalogue().Window().ucShoppingCart->Browser();
    double cartEnd = 0;
    QObject context;
    QObject::connect(cart, &WebBrowser::DocumentComplete, &context, [&] {
        cart->RunScript(QStringLiteral("0"), [&](const QVariant &) { cartEnd = Clock::Now(); });
    });

    const double begin = Clock::Now();
    QPushButton *const button =
        window.Catalogue().Window().header->btnLang.at(static_cast<size_t>(language));
    const PageTimes list = window.TimesOf(ListPage, [&] { ClickOn(button); });
    if (!WaitUntil([&] { return cartEnd > 0; }))
        qFatal("the cart's page was not filled in another language");
    return std::max(list.All(), cartEnd - begin);
}

} // namespace

void MeasureBrowsing(const Extent &extent)
{
    MeasuredWindow window(Folders::Limit);
    WatchedProgram bare(Folders::BareWindow, {QString::fromUtf8(AddressOf(SavedPage::Welcome))});
    bare.WaitFor("shown");
    const CategoryNode *const category = window.LeafWith(Folders::LargeCategory);
    TimesOfList(window, category);
    TimeOfBareList(bare);

    std::vector<double> bareList;
    std::vector<double> loading;
    std::vector<double> list;
    std::vector<double> language;
    for (int run = 0; run < extent.runs; ++run) {
        bareList.push_back(TimeOfBareList(bare));
        const PageTimes times = TimesOfList(window, category);
        loading.push_back(times.loading);
        list.push_back(times.All());
        // From English, every run to the next of the others and on.
        constexpr int languages = LanguageSupport::LanguageCount;
        language.push_back(TimeOfLanguage(window, run % languages));
    }
    PrintRow({QStringLiteral("click on a category to its list ÷ bare window"), Unit::Ratio, 1.5,
              Ratios(list, bareList),
              QStringLiteral("bare window %1 ms, catalogue %2 ms, of which %3 ms until the empty "
                             "page has loaded")
                  .arg(Median(bareList), 0, 'f', 1)
                  .arg(Median(list), 0, 'f', 1)
                  .arg(Median(loading), 0, 'f', 1)});
    PrintRow({QStringLiteral("change of language to everything in it"), Unit::Milliseconds, 150,
              language});
}

} // namespace Tesk
