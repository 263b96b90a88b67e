#pragma once

#include "support/PageUser.h"

#include <QString>
#include <QStringList>

class QPushButton;

namespace Tesk {

class CatalogueWindow;

/// The tab with the shopping cart, used with mouse and keyboard.
class CartTab final
{
public:
    explicit CartTab(CatalogueWindow &catalogue);

    /// Clicks the tab and waits for the page that this shows. False without it.
    bool Open();
    bool IsCurrent() const;
    PageUser &Page() { return page; }

    /// A button of the toolbars by its name: "btnSave", "btnSendOrder" …
    QPushButton *Button(const char *name) const;
    void Press(const char *button);

    /// What the table of the page shows below its captions, on the cart's page as on the order
    /// form: each line the texts of its cells and fields, parted by "|", empty cells left out.
    QStringList Lines();
    /// Waits for these lines on the page of the cart. The test's message shows them otherwise.
    bool WaitForLines(const QStringList &expected);
    /// The same on the order form.
    bool WaitForOrderForm(const QStringList &expected);

    /// Waits for this in place of lines.
    bool WaitForText(const QString &text);

private:
    bool WaitForLines(const QString &addressPart, const QStringList &expected);

    CatalogueWindow &catalogue;
    PageUser page;
};

} // namespace Tesk
