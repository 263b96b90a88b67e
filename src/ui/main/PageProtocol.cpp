#include "ui/main/PageProtocol.h"

#include "base/Errors.h"
#include "core/CategoryTree.h"
#include "core/Controller.h"
#include "pages/HtmlBuilder.h"
#include "ui/main/MousePointer.h"
#include "ui/main/PageAddress.h"
#include "ui/main/PageHost.h"
#include "ui/main/history/NavigationHistory.h"

#include <QLoggingCategory>

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
    const QString trimmed = address.trimmed();
    if (trimmed.isEmpty() || trimmed == QLatin1String("http:///")) {
        parts.pointer.SetDefault();
        return;
    }
    parts.history.PushEntry(address);
    if (address.contains(CategoryPage)) {
        ArmLoader(CategoryElement, address);
    } else if (address.contains(ListPage)) {
        firstItem = PageAddress::FirstItem(address);
        ArmLoader(ListElement, address);
    } else if (address.contains(DetailsPage)) {
        ArmLoader(DetailsElement, address);
    } else if (address.contains(WelcomePage)) {
        FillWelcomePage();
        Q_EMIT PageFilled(WelcomePage);
    } else {
        // A document or data sheet shows as it is: nothing is filled later that could put the
        // pointer right.
        LoaderTimer.stop();
        parts.pointer.SetDefault();
    }
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
    } catch (const CatalogueError &error) {
        qCWarning(pagesLog).noquote()
            << "The page" << currentUrl << "could not be filled:" << error.Message();
        parts.pointer.SetDefault();
    }
    Q_EMIT PageFilled(pendingElementId);
}

void PageProtocol::Fill(const QString &elementId, const QString &id)
{
    if (elementId == CategoryElement)
        ShowCategoryList(id);
    else if (elementId == ListElement)
        ShowProductList(id);
    else if (elementId == DetailsElement)
        ShowProductDetails(id);
}

void PageProtocol::FillWelcomePage()
{
    LoaderTimer.stop();
    parts.builder.WriteStartPage(parts.browser, parts.tree);
    parts.host.SetStatusText(QString());
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
    parts.builder.WriteCategoryList(parts.browser, currentNode->text, parts.tree, currentNode);
    parts.pointer.SetDefault();
}

void PageProtocol::ShowProductList(const QString &id)
{
    const CategoryNode *currentNode = parts.host.CurrentNode();
    QString caption;
    if (currentNode == nullptr) {
        caption = parts.controller.GetText(QStringLiteral("productListSearchHeadline"));
    } else {
        caption = currentNode->text;
        productRows = parts.controller.Queries().QueryProductsOfCategory(id);
    }
    const bool hasSingleProducts = parts.controller.Queries().HasSingleProducts(id);
    parts.builder.WriteProductList(parts.browser, caption, productRows, firstItem, id,
                                   hasSingleProducts, currentNode);
    parts.pointer.SetDefault();
}

void PageProtocol::ShowProductDetails(const QString &id)
{
    const CategoryNode *currentNode = parts.host.CurrentNode();
    const ResultTable product = parts.controller.Queries().QueryProduct(id);
    if (GetField(QStringLiteral("p.isSet"), product, 1) == QLatin1String("True")) {
        productRows = parts.controller.Queries().QuerySetMembers(id);
        parts.builder.WriteSetList(parts.browser, GetField(QStringLiteral("l.name"), product, 1),
                                   productRows, currentNode);
    } else {
        parts.builder.WriteProductDetails(parts.browser, product, productRows, currentNode);
    }
    parts.pointer.SetDefault();
}

} // namespace Tesk
