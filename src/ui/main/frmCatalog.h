#pragma once

#include "core/CategoryTree.h"
#include "pages/HtmlBuilder.h"
#include "ui/main/DesktopTexts.h"
#include "ui/main/MousePointer.h"
#include "ui/main/PageHost.h"
#include "ui/main/WindowControls.h"
#include "ui/main/history/NavigationHistory.h"

#include <QMainWindow>

#include <memory>

class QWebEngineProfile;

namespace Tesk {

class CartRequest;
class CategorySelection;
class Controller;
class FastSearch;
class MenuCommands;
class PagePrinter;
class PageProtocol;
class ShownPlace;
struct ContactServices;

/// The main window: it owns the browser, the tree, the tabs and the menus, and wires them together.
class frmCatalog final : public QMainWindow, public PageHost, public WindowControls
{
    Q_OBJECT

public:
    /// All of it outlives the window; `profile` carries the resource scheme.
    frmCatalog(Controller &controller, const ContactServices &contactServices,
               QWebEngineProfile *profile);
    ~frmCatalog() override;

    /// Starts the program up and goes to the welcome page. Throws CatalogueError when the program
    /// cannot run. The result is a message for the user, empty when all went well.
    QString Load();

    /// All texts in the current language, and the current page opened again in language and unit.
    /// Throws FileError without the file "version".
    void ApplyGuiTexts();
    void GoHome();
    void MarkCurrentLanguage();
    void FillCategoryTree();

    const CategoryNode *CurrentNode() const override;
    void TreeViewCategories_NodeClick(const CategoryNode *node) override;
    void SelectCategory(const CategoryNode *node) override;
    void SetStatusText(const QString &text) override;
    void SetBreadcrumb(const QList<Crumb> &pairs) override;

    /// Shows the rows as a product list in place of a category.
    void ShowSearchResults(const ResultTable &rows);
    /// Opens the details of a product that belongs to no list, such as one of the cart.
    void ShowStandaloneDetails(const QString &id);
    void ShowCartTab();
    void PrintCart();
    void ManualAddToCart();
    /// Goes back to the page, or to the search form, that was shown before.
    void GoBack();

    const CategoryTree &Tree() const { return tree; }
    PageProtocol &Protocol() { return *protocol; }
    const NavigationHistory &History() const { return history; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void ConnectControls();
    void ConnectNavigation();
    void ConnectCart();
    void RefreshCart();
    void ConnectPrinting();
    void ConnectKeys();
    void ConnectZoom();
    void SelectNavEntry(const QString &id);
    void ShowSearchForm();
    void SelectCrumb(const QString &link);
    void ShowItem(qint16 index);
    void OpenContent(const QString &tail);
    /// The same, and the tab where the page shows.
    void ShowContent(const QString &tail);
    void SelectTab(Tab tab);
    void SelectLanguage(int index);
    void SelectUnit(int index);
    void Print();
    void ReloadPage();

    Controller &controller;
    HtmlBuilder builder;
    CategoryTree tree;
    NavigationHistory history;
    MousePointer pointer;
    DesktopTexts desktopTexts;
    std::unique_ptr<ShownPlace> place;
    std::unique_ptr<CategorySelection> selection;
    std::unique_ptr<PageProtocol> protocol;
    MenuCommands *menuCommands = nullptr;
    CartRequest *cartRequest = nullptr;
    FastSearch *fastSearch = nullptr;
    PagePrinter *pagePrinter = nullptr;
};

} // namespace Tesk
