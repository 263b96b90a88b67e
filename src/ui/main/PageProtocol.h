#pragma once

#include "core/ResultTable.h"
#include "ui/main/history/VisitedPlaces.h"

#include <QObject>
#include <QString>
#include <QTimer>

namespace Tesk {

class CategoryTree;
class Controller;
class HtmlBuilder;
class HtmlDocument;
class ItemScroller;
class MousePointer;
class NavigationHistory;
class PageHost;

/// Recognises the page that the browser has loaded by its address and fills it: the welcome page at
/// once, the others when `LoaderTimer` ticks, so that of two pages in quick succession only the
/// last is filled.
class PageProtocol final : public QObject
{
    Q_OBJECT

public:
    /// Time between a page's completion and its filling, in milliseconds.
    static constexpr int LoaderInterval = 200;

    /// What the protocol works with; all of it outlives the protocol.
    struct Parts
    {
        const Controller &controller;
        const HtmlBuilder &builder;
        const CategoryTree &tree;
        NavigationHistory &history;
        HtmlDocument &browser;
        PageHost &host;
        MousePointer &pointer;
        ItemScroller &scroller;
    };

    explicit PageProtocol(const Parts &parts, QObject *parent = nullptr);

    /// The address of the last completed page, which a change of language or unit opens again. On
    /// the way home the window sets that of the welcome document, which never completes.
    const QString &CurrentUrl() const { return currentUrl; }
    void SetCurrentUrl(const QString &address) { currentUrl = address; }

    /// What the page shown is about: its category, "Search results", the product. Empty for pages
    /// that are not filled, which have names of their own.
    const QString &PageName() const { return pageName; }

    /// The product rows that list pages and the steps from product to product work on.
    const ResultTable &ProductRows() const { return productRows; }
    void SetProductRows(ResultTable rows) { productRows = std::move(rows); }
    /// The rows of the latest search, which every list page without a category shows. The window is
    /// about to open one.
    void SetSearchRows(const ResultTable &rows);

    /// The window is about to open `entry`, which the history has gone back to: puts right what
    /// that page showed beside its address.
    void PrepareReturn(const QString &entry);

    /// Whether the next details page belongs to no list: then it offers no steps to other products.
    /// The window is about to open it.
    void SetStandaloneDetails(bool isStandalone);

public Q_SLOTS:
    /// The browser has completed the page at this address (percent-decoded).
    void DocumentComplete(const QString &address);
    /// The browser could not load this address: nothing will be filled that puts the pointer right.
    void LoadFailed();

Q_SIGNALS:
    /// A fill has ended, successful or not. The welcome page is filled without an element of its
    /// own.
    void PageFilled(const QString &elementId);
    void WelcomePageFilled();

private:
    void SelectCategoryOfList(const QString &id);
    void Record(const QString &address);
    void KeepPlace();
    void ShowPosition(const QString &id);
    void ArmLoader(const QString &elementId, const QString &address);
    void LoaderTick();
    void Fill(const QString &elementId, const QString &id);
    void FillWelcomePage();
    void ShowCategoryList(const QString &id);
    void ShowProductList(const QString &id);
    void ShowProductDetails(const QString &id);

    Parts parts;
    QTimer LoaderTimer;
    QString currentUrl;
    QString pendingElementId;
    QString pendingId;
    QString pageName;
    qint16 firstItem = 1;
    ResultTable productRows;
    ResultTable searchRows;
    VisitedPlaces places;
    bool standaloneDetails = false;
};

} // namespace Tesk
