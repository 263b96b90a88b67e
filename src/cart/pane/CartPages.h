#pragma once

#include "cart/pane/CartAddress.h"
#include "cart/pane/CartHtml.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Tesk {

class AfterPage;
class Controller;
class HtmlBuilder;
class PageContext;
class WebBrowser;
class clsShoppingCart;
struct LastContact;

/// The cart's pages in the pane's browser: asks for them, writes the cart into each one that has
/// loaded, and hears what it reports. Edits and deletions go straight into the cart.
class CartPages final : public QObject
{
    Q_OBJECT

public:
    /// What the pages are made of; all of it outlives them.
    struct Sources
    {
        Controller &controller;
        const HtmlBuilder &builder;
        const LastContact &lastContact;
    };

    /// Belongs to the browser.
    CartPages(const Sources &sources, WebBrowser &browser);
    ~CartPages() override;

    void ShowCart(CartPageAction action = CartPageAction::None);
    /// A line was deleted or the cart was replaced: what the old page still reports is not heard.
    void ShowChangedCart();
    /// The cart that was not changed after all.
    void ShowUnchangedCart();
    void ShowOrderForm(bool isToBePrinted);

    /// Whether the page that was asked for last has not loaded yet.
    bool IsLoading() const;
    /// Whether it has, and what was written into it is not there yet.
    bool IsWriting() const;
    bool IsUnderWay() const { return IsLoading() || IsWriting(); }
    bool IsOrderForm() const;

Q_SIGNALS:
    /// A page has loaded and gets its contents next.
    void Loaded();
    /// The page that was asked for last has loaded, and the one before has nothing more to report.
    void Replaced();
    /// All that was written into the page is there.
    void Written(Tesk::CartPageAction action);
    /// The page that was asked for does not come, or nothing could be written into it.
    void Failed();
    void ProductChosen(const QString &id);

private:
    void DocumentComplete(const QString &address);
    void Write(const QString &address, bool isReload);
    void WriteCart();
    void WriteOrderForm();
    void LeaveToProduct(const QString &id);
    void LoadFailed();
    void StatusTextChange(const QString &text);
    void DeleteLine(const QString &text);
    void Navigate(const QString &page);
    clsShoppingCart &Cart() const;

    Sources sources;
    std::unique_ptr<const PageContext> context;
    CartHtml html;
    WebBrowser &browser;
    AfterPage *afterWriting;
    /// The address that was asked for last, until its page has loaded.
    QString requestedAddress;
    /// The page's keys are no longer the cart's.
    bool isOutdated = false;
    /// The engine failed and opens the last page again, unless another one is asked for before. The
    /// action of the last page was carried out already.
    bool isReloading = false;
};

} // namespace Tesk
