#pragma once

class QLabel;
class QMainWindow;
class QTabWidget;
class QWebEngineProfile;
class QWidget;

namespace Tesk {

class Breadcrumb;
class CategoryTreeView;
class Controller;
class HeaderBand;
class HtmlBuilder;
class ItemScroller;
class MainMenu;
class NavLeft;
class SearchDetail;
class ShoppingCart;
class WebBrowser;
struct ContactServices;

/// The main window's controls, made and laid out in it. The window owns them and acts on them.
struct WindowControls
{
    enum Tab { ProductsTab = 0, CategoriesTab = 1, CartTab = 2, SearchTab = 3 };

    MainMenu *menus = nullptr;
    HeaderBand *header = nullptr;
    NavLeft *ucNavLeft = nullptr;
    Breadcrumb *ucBreadcrumb = nullptr;
    ItemScroller *scroller = nullptr;
    QTabWidget *tabMain = nullptr;
    WebBrowser *wbMain = nullptr;
    QLabel *lblCategorySelection = nullptr;
    CategoryTreeView *TreeViewCategories = nullptr;
    ShoppingCart *ucShoppingCart = nullptr;
    SearchDetail *ucSearchDetail = nullptr;
    QLabel *lblStatus = nullptr;
    QLabel *lblZoom = nullptr;

protected:
    /// What the controls work with; all of it outlives the window.
    struct Parts
    {
        Controller &controller;
        const HtmlBuilder &builder;
        const ContactServices &contactServices;
        QWebEngineProfile *profile; ///< carries the resource scheme
    };

    void LayOut(QMainWindow &window, const Parts &parts);
    /// The captions that belong to no control with a class of its own.
    void ApplyCaptions(const Controller &controller);

private:
    QWidget *PageColumn(const Parts &parts);
    void AddTabs(const Parts &parts);
    QWidget *CategoriesPage();
    void AddStatusBar(QMainWindow &window);
};

} // namespace Tesk
