// From a click to the page that it leads to.

#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "MeasuredWindow.h"
#include "SavedPage.h"
#include "WatchedProgram.h"
#include "support/UserActions.h"
#include "ui/main/HeaderBand.h"

#include <QPushButton>

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

/// With a list in front. What no tab shows is filled when it comes to the front.
PageTimes TimesOfLanguage(MeasuredWindow &window, int language)
{
    QPushButton *const button =
        window.Catalogue().Window().header->btnLang.at(static_cast<size_t>(language));
    return window.TimesOf(ListPage, [&] { ClickOn(button); });
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
        language.push_back(TimesOfLanguage(window, run % languages).All());
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
