#include "ui/main/PageProtocol.h"

#include "base/Errors.h"
#include "base/Numbers.h"
#include "core/BreadcrumbUtil.h"
#include "core/CategoryTree.h"
#include "core/Controller.h"
#include "pages/HtmlBuilder.h"
#include "ui/main/MousePointer.h"
#include "ui/main/PageAddress.h"
#include "ui/main/PageHost.h"
#include "ui/main/controls/ItemScroller.h"
#include "ui/main/history/NavigationHistory.h"

#include <QLoggingCategory>
#include <QScopeGuard>

#include <algorithm>

namespace Tesk {

namespace {

Q_LOGGING_CATEGORY(pagesLog, "tesk.pages")

const QLatin1String CategoryPage{"category_list.html"};
const QLatin1String ListPage{"product_list.html"};
const QLatin1String DetailsPage{"product_details.html"};
const QLatin1String WelcomePage{"welcome.html"};

const QLatin1String CategoryElement{"categoryList"};
const QLatin1String ListElement{"productList"};
const QLatin1String DetailsElement{"productDetails"};

/// The number of data rows: 0 for the empty table. Throws ConversionError beyond 32767.
qint16 CountOf(const ResultTable &rows)
{
    return ToInt16(static_cast<double>(std::max(rows.UpperRow(), 0)));
}

} // namespace

PageProtocol::PageProtocol(const Parts &parts, QObject *parent)
    : QObject(parent)
    , parts(parts)
{
    LoaderTimer.setSingleShot(true);
    LoaderTimer.setInterval(LoaderInterval);
    connect(&LoaderTimer, &QTimer::timeout, this, &PageProtocol::LoaderTick);
}

void PageProtocol::DocumentComplete(const QString &address)
{
    currentUrl = address;
    pageName.clear();
    const QString trimmed = address.trimmed();
    if (trimmed.isEmpty() || trimmed == QLatin1String("http:///")) {
        parts.pointer.SetDefault();
        return;
    }
    Record(address);
    if (address.contains(CategoryPage)) {
        ArmLoader(CategoryElement, address);
    } else if (address.contains(ListPage)) {
        // An address without a proper first item is reported and leaves the page unfilled.
        LoaderTimer.stop();
        const QScopeGuard pointerGuard([this] {
            if (!LoaderTimer.isActive())
                parts.pointer.SetDefault();
        });
        firstItem = PageAddress::FirstItem(address);
        ArmLoader(ListElement, address);
    } else if (address.contains(DetailsPage)) {
        // Steps can be quicker than the fill.
        KeepPlace();
        ArmLoader(DetailsElement, address);
    } else if (address.contains(WelcomePage)) {
        FillWelcomePage();
        parts.scroller.SetBackEnabled(parts.history.HasMoreEntries());
        Q_EMIT WelcomePageFilled();
    } else {
        // A document or data sheet shows as it is: nothing is filled later that could put the
        // pointer right.
        LoaderTimer.stop();
        parts.pointer.SetDefault();
    }
}

void PageProtocol::Record(const QString &address)
{
    const qint16 position = parts.history.Position();
    parts.history.PushEntry(address);
    if (parts.history.Position() != position)
        places.Forget(parts.history.Position());
}

// Only under the entry of this very page: not every visit is recorded.
void PageProtocol::KeepPlace()
{
    if (parts.history.Newest() == NavigationHistory::EntryOf(currentUrl))
        places.Keep(parts.history.Position(),
                    {productRows, parts.host.CurrentNode(), standaloneDetails});
}

void PageProtocol::SetStandaloneDetails(bool isStandalone)
{
    // A list that is being left would make the details its own.
    LoaderTimer.stop();
    standaloneDetails = isStandalone;
}

void PageProtocol::SetSearchRows(const ResultTable &rows)
{
    // A category page that is being left would select its category in place of the hits.
    LoaderTimer.stop();
    searchRows = productRows = rows;
}

void PageProtocol::PrepareReturn(const QString &entry)
{
    const VisitedPlace *const place = places.At(parts.history.Position());
    if (place == nullptr)
        return;
    // A page that is being left must not be filled any more: it could change what is put right
    // here.
    LoaderTimer.stop();
    productRows = place->rows;
    standaloneDetails = place->isStandalone;
    if (entry.contains(ListPage) && place->node == nullptr)
        searchRows = place->rows;
    parts.host.SelectCategory(place->node);
    parts.host.SetBreadcrumb(BuildBreadcrumbPath(place->node));
}

void PageProtocol::LoadFailed()
{
    parts.pointer.SetDefault();
    // Back leads to the page before the one that failed, which is the newest entry.
    if (!parts.history.Newest().isEmpty())
        parts.scroller.SetBackEnabled(true);
}

void PageProtocol::ArmLoader(const QString &elementId, const QString &address)
{
    pendingElementId = elementId;
    pendingId = PageAddress::Id(address);
    LoaderTimer.start();
}

void PageProtocol::LoaderTick()
{
    LoaderTimer.stop();
    try {
        Fill(pendingElementId, pendingId);
    } catch (const std::exception &error) {
        qCWarning(pagesLog).noquote()
            << "The page" << currentUrl << "could not be filled:" << error.what();
        parts.pointer.SetDefault();
    }
    parts.scroller.SetBackEnabled(parts.history.HasMoreEntries());
    Q_EMIT PageFilled(pendingElementId);
}

void PageProtocol::Fill(const QString &elementId, const QString &id)
{
    if (elementId == CategoryElement) {
        ShowCategoryList(id);
    } else if (elementId == ListElement) {
        standaloneDetails = false;
        ShowProductList(id);
    } else if (elementId == DetailsElement) {
        ShowProductDetails(id);
    }
}

void PageProtocol::FillWelcomePage()
{
    LoaderTimer.stop();
    parts.scroller.DisableScroller();
    parts.builder.WriteStartPage(parts.browser, parts.tree);
    parts.host.SetStatusText(QString());
    parts.host.SetBreadcrumb({});
    parts.pointer.SetDefault();
}

void PageProtocol::ShowCategoryList(const QString &id)
{
    const CategoryNode *currentNode = parts.host.CurrentNode();
    if (currentNode == nullptr || currentNode->tag != id) {
        if (const CategoryNode *node = parts.tree.FindByTag(id)) {
            // Selecting the node opens this very page again, which then makes its own entry.
            if (parts.history.HasMoreEntries())
                parts.history.PopEntry();
            parts.host.TreeViewCategories_NodeClick(node);
            return;
        }
    }
    if (currentNode == nullptr)
        throw SubscriptError(QStringLiteral("There is no category with the id \"%1\".").arg(id));
    pageName = currentNode->text;
    parts.scroller.DisableScroller();
    parts.builder.WriteCategoryList(parts.browser, currentNode->text, parts.tree, currentNode);
    parts.host.SetBreadcrumb(BuildBreadcrumbPath(currentNode));
    parts.pointer.SetDefault();
}

// The way back leads to lists of other categories than the one selected last, and from a category
// to the results of a search.
void PageProtocol::SelectCategoryOfList(const QString &id)
{
    const CategoryNode *const currentNode = parts.host.CurrentNode();
    if (id.isEmpty()) {
        if (currentNode != nullptr)
            parts.host.SelectCategory(nullptr);
        productRows = searchRows;
    } else if (currentNode == nullptr || currentNode->tag != id) {
        if (const CategoryNode *const node = parts.tree.FindByTag(id))
            parts.host.SelectCategory(node);
    }
}

void PageProtocol::ShowProductList(const QString &id)
{
    SelectCategoryOfList(id);
    const CategoryNode *currentNode = parts.host.CurrentNode();
    QString caption;
    if (currentNode == nullptr) {
        caption = parts.controller.GetText(QStringLiteral("productListSearchHeadline"));
        parts.host.SetStatusText(QStringLiteral("%1: %2").arg(caption).arg(CountOf(productRows)));
    } else {
        caption = currentNode->text;
        productRows = parts.controller.Queries().QueryProductsOfCategory(id);
        parts.scroller.SetCount(CountOf(productRows));
    }
    pageName = caption;
    KeepPlace();
    parts.scroller.DisableScroller();
    const bool hasSingleProducts = parts.controller.Queries().HasSingleProducts(id);
    parts.builder.WriteProductList(parts.browser, caption, productRows, firstItem, id,
                                   hasSingleProducts, currentNode);
    parts.host.SetBreadcrumb(BuildBreadcrumbPath(currentNode));
    parts.pointer.SetDefault();
}

// The place of the product among the rows that the user steps through.
void PageProtocol::ShowPosition(const QString &id)
{
    parts.scroller.SetCount(CountOf(productRows));
    parts.scroller.EnableScroller();
    if (standaloneDetails)
        parts.scroller.DisableScroller();
    else
        parts.scroller.SetItemIndex(FindRowById(productRows, id));
}

void PageProtocol::ShowProductDetails(const QString &id)
{
    const CategoryNode *currentNode = parts.host.CurrentNode();
    const ResultTable product = parts.controller.Queries().QueryProduct(id);
    KeepPlace();
    ShowPosition(id);
    pageName = GetField(QStringLiteral("p.artNr"), product, 1) + u' ' +
               GetField(QStringLiteral("l.name"), product, 1);
    if (GetField(QStringLiteral("p.isSet"), product, 1) == QLatin1String("True")) {
        productRows = parts.controller.Queries().QuerySetMembers(id);
        parts.scroller.SetCount(CountOf(productRows));
        // The set's own place in its list, such as the last, says nothing of its members.
        if (standaloneDetails)
            parts.scroller.DisableScroller();
        else
            parts.scroller.EnableScroller();
        parts.builder.WriteSetList(parts.browser, GetField(QStringLiteral("l.name"), product, 1),
                                   productRows, currentNode);
    } else {
        parts.builder.WriteProductDetails(parts.browser, product, productRows, currentNode);
    }
    parts.pointer.SetDefault();
}

} // namespace Tesk
