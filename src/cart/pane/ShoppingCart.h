#pragma once

#include "browser/PagePrinter.h"
#include "cart/pane/CartActions.h"
#include "cart/pane/CartCommand.h"
#include "cart/pane/CartPages.h"
#include "contact/ContactServices.h"

#include <QWidget>

class QWebEngineProfile;

namespace Tesk {

class AfterPage;
class CartToolbars;
class Controller;
class HtmlBuilder;
class WebBrowser;

/// The pane that shows and edits the shopping cart: two toolbars above a browser of its own. The
/// cart itself is the only state; the page is written from it whenever it has loaded. Commands are
/// addresses of the page with an action, carried out once the page shows the cart; they wait for
/// what the user is just typing in the page. Errors of saving, loading and adding leave as
/// CatalogueError through the event loop, after the page shows what the cart holds. A print that
/// fails leaves a line on the terminal only.
class ShoppingCart final : public QWidget
{
    Q_OBJECT

public:
    /// What the pane works with; all of it outlives the pane.
    struct Parts
    {
        Controller &controller;
        const HtmlBuilder &builder;
        ContactServices contactServices;
        QWebEngineProfile *profile;
    };

    explicit ShoppingCart(const Parts &parts, QWidget *parent = nullptr);
    /// The same with another way of choosing the printer than the system's dialog.
    ShoppingCart(const Parts &parts, const PagePrinter::SetUp &setUp, QWidget *parent = nullptr);
    ~ShoppingCart() override;

    /// Prints the page shown, once it is written.
    void OnPrint();
    /// Asks for articles by their numbers and adds them.
    void OnManualAdd();
    /// Sets all captions in the current language.
    void InitGui();
    /// Shows the cart as it is now, unless a page that will show it is loading already. Waits for a
    /// command that is under way, and for the page that is being written.
    void Initialize();
    /// Shows the order form of the contact form sent or printed last, and prints it.
    void ExtContactCall(bool performPrint);

    /// The pane's browser, for what the window does with every browser (zoom).
    WebBrowser *Browser() const { return wbShoppingCart; }

Q_SIGNALS:
    /// The user wants to see the product of a line; `id` is what the line holds, of any spelling.
    void OnProductSelect(const QString &id);

private:
    void Start(CartCommand command);
    void Perform(CartCommand command);
    void EndCommand();
    void ShowWaiting();
    void Load();
    void AddManually();
    void Empty();
    void Print();
    void Carry(CartPageAction action);
    void SendForm(bool isOrder);

    void PageWritten(CartPageAction action);
    void PageFailed();
    void UpdateButtons();

    Parts parts;
    CartActions actions;
    CartToolbars *toolbars;
    WebBrowser *wbShoppingCart;
    PagePrinter *printer;
    CartPages *pages;
    /// Waits for the field that the user types in.
    AfterPage *afterEdit;
    bool isCommandRunning = false;
    bool isPrintRequested = false;
    /// The cart is to be shown anew once nothing stands in the way.
    bool isShowWaiting = false;
};

} // namespace Tesk
