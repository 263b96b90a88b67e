#include "ui/main/WindowControls.h"

#include "browser/WebBrowser.h"
#include "cart/pane/ShoppingCart.h"
#include "core/Controller.h"
#include "search/SearchDetail.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/MainMenu.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/Colours.h"
#include "ui/main/controls/ItemScroller.h"
#include "ui/main/controls/NavLeft.h"
#include "ui/main/controls/ShortcutKeys.h"

#include <QFrame>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace Tesk {

namespace {

constexpr int LineHeight = 2; // pixels

/// Flat tabs with the leading colour at the current one's edge, in the desktop's own text colours.
QString TabStyle()
{
    return QStringLiteral("QTabWidget::tab-bar { left: 12px; }"
                          "QTabBar::tab { padding: 7px 14px; border: 0;"
                          " border-top: 2px solid transparent; }"
                          "QTabBar::tab:selected { border-top-color: %1;"
                          " background: palette(base); }"
                          "QTabBar::tab:hover:!selected { background: palette(midlight); }"
                          "QTabBar::tab:focus { text-decoration: underline; }")
        .arg(Colours::Band.name());
}

QFrame *BandLine()
{
    auto *const line = new QFrame;
    line->setObjectName(QStringLiteral("Line1"));
    line->setFixedHeight(LineHeight);
    line->setAutoFillBackground(true);
    line->setPalette(QPalette(Colours::Band));
    return line;
}

QVBoxLayout *ColumnIn(QWidget *widget)
{
    auto *const column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

} // namespace

void WindowControls::LayOut(QMainWindow &window, const Parts &parts)
{
    menus = new MainMenu(window.menuBar());

    header = new HeaderBand;
    ucNavLeft = new NavLeft(parts.contactServices.getText);
    ucNavLeft->setObjectName(QStringLiteral("ucNavLeft"));

    auto *const ground = new QWidget(&window);
    QVBoxLayout *const rows = ColumnIn(ground);
    rows->addWidget(header);
    rows->addWidget(BandLine());
    auto *const columns = new QHBoxLayout;
    columns->addWidget(ucNavLeft);
    columns->addWidget(PageColumn(parts), 1);
    rows->addLayout(columns, 1);
    window.setCentralWidget(ground);
    AddStatusBar(window);
}

QWidget *WindowControls::PageColumn(const Parts &parts)
{
    auto *const page = new QWidget;
    QVBoxLayout *const column = ColumnIn(page);
    ucBreadcrumb = new Breadcrumb;
    ucBreadcrumb->setObjectName(QStringLiteral("ucBreadcrumb"));
    scroller = new ItemScroller(parts.contactServices.getText);
    scroller->setObjectName(QStringLiteral("scroller"));
    auto *const band = new QHBoxLayout;
    band->addWidget(ucBreadcrumb, 1);
    band->addWidget(scroller);
    column->addLayout(band);
    AddTabs(parts);
    column->addWidget(tabMain, 1);
    return page;
}

void WindowControls::AddTabs(const Parts &parts)
{
    tabMain = new QTabWidget;
    tabMain->setObjectName(QStringLiteral("tabMain"));
    tabMain->setDocumentMode(true);
    tabMain->setStyleSheet(TabStyle());
    wbMain = new WebBrowser(parts.profile);
    wbMain->setObjectName(QStringLiteral("wbMain"));
    wbMain->SetTextLookup(parts.contactServices.getText);
    tabMain->addTab(wbMain, QStringLiteral("Produkte"));
    tabMain->addTab(CategoriesPage(), QStringLiteral("Kategorien"));
    ucShoppingCart = new ShoppingCart(
        ShoppingCart::Parts{parts.controller, parts.builder, parts.contactServices, parts.profile});
    ucShoppingCart->setObjectName(QStringLiteral("ucShoppingCart"));
    tabMain->addTab(ucShoppingCart, QStringLiteral("Warenkorb"));
    ucSearchDetail = new SearchDetail(parts.controller.Queries(), parts.controller.Languages());
    ucSearchDetail->setObjectName(QStringLiteral("ucSearchDetail"));
    tabMain->addTab(ucSearchDetail, QStringLiteral("Detailsuche"));
}

QWidget *WindowControls::CategoriesPage()
{
    auto *const page = new QWidget;
    auto *const rows = new QVBoxLayout(page);
    rows->setContentsMargins(24, 16, 24, 16);
    rows->setSpacing(8);
    lblCategorySelection = new QLabel;
    lblCategorySelection->setWordWrap(true);
    TreeViewCategories = new CategoryTreeView(page);
    TreeViewCategories->setObjectName(QStringLiteral("TreeViewCategories"));
    lblCategorySelection->setBuddy(TreeViewCategories);
    page->setFocusProxy(TreeViewCategories);
    rows->addWidget(lblCategorySelection);
    rows->addWidget(TreeViewCategories, 1);
    return page;
}

void WindowControls::AddStatusBar(QMainWindow &window)
{
    // A message of the bar itself would go as soon as the pointer passes over a menu.
    lblStatus = new QLabel;
    lblStatus->setObjectName(QStringLiteral("StatusBar"));
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    window.statusBar()->addWidget(lblStatus, 1);
    lblZoom = new QLabel;
    lblZoom->setObjectName(QStringLiteral("lblZoom"));
    lblZoom->hide();
    window.statusBar()->addPermanentWidget(lblZoom);
}

void WindowControls::ApplyCaptions(const Controller &controller)
{
    const auto text = [&](const char *key) { return controller.GetText(QLatin1String(key)); };
    tabMain->setTabText(ProductsTab, text("tabControlMain"));
    tabMain->setTabText(CategoriesTab, text("tabControlCategorySelect"));
    tabMain->setTabText(CartTab, text("tabControlShoppingCart"));
    tabMain->setTabText(SearchTab, text("tabControlSearchDetail"));
    for (int tab = 0; tab < tabMain->count(); ++tab)
        tabMain->setTabToolTip(
            tab, ShortcutKeys::ToolTip(tabMain->tabText(tab), ShortcutKeys::TabKey(tab)));
    lblCategorySelection->setText(text("categorySelectionDescription"));
    TreeViewCategories->setAccessibleName(tabMain->tabText(CategoriesTab));
    wbMain->setAccessibleName(tabMain->tabText(ProductsTab));
}

} // namespace Tesk
