// Takes the pages for the bare window from the catalogue's own.

#include "Folders.h"
#include "Groups.h"
#include "MeasuredWindow.h"
#include "SavedPage.h"
#include "support/CartTab.h"
#include "support/PageUser.h"

#include "browser/WebBrowser.h"

namespace Tesk {

void SavePages(const Extent &)
{
    PrepareSavedPages(Folders::Limit);
    MeasuredWindow window(Folders::Limit);
    const QString container = Folders::Limit + QLatin1String("/resources.chm");
    PageUser page(*window.Catalogue().Window().wbMain);
    Save(SavedPage::Welcome, page, container);

    const CategoryNode *const category = window.LeafWith(Folders::LargeCategory);
    window.PointTo(category);
    window.TimesOf(QStringLiteral("product_list.html"), [&] { window.Click(category); });
    Save(SavedPage::List, page, container);

    CartTab cart(window.Catalogue());
    if (!cart.Open())
        qFatal("the cart's page does not open");
    Save(SavedPage::Cart, cart.Page(), container);
}

} // namespace Tesk
