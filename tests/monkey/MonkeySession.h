#pragma once

#include "Articles.h"
#include "CartModel.h"
#include "CartWitness.h"
#include "DialogMonkey.h"
#include "Findings.h"
#include "MonkeyFiles.h"

#include "support/CartTab.h"
#include "support/CatalogueWindow.h"

#include <QObject>
#include <QString>

namespace Tesk {

/// The real window on the sample catalogue with all that watches it, and what the monkey needs to
/// know before it goes on.
class MonkeySession final : public QObject
{
    Q_OBJECT

public:
    explicit MonkeySession(const QString &applicationDirectory);
    ~MonkeySession() override;

    frmCatalog &Window() { return catalogue.Window(); }
    WebBrowser &Page() { return *Window().wbMain; }
    WebBrowser &CartPage();

    /// Waits until nothing is under way any more and compares the cart with the model. Whatever
    /// is not as it must be becomes a failure.
    void Rest();
    /// Waits for prints that are under way.
    void WaitForPrints();

    /// Clicks the tab unless it is shown.
    void OpenTab(WindowControls::Tab tab);

    Findings findings;
    CatalogueWindow catalogue;
    Articles articles;
    CartModel model;
    MonkeyFiles files;
    CartWitness witness;
    DialogMonkey dialogs;
    CartTab cart;

private:
    void FollowFills();
    QString WhatIsUnderWay();
    void CheckCart();
    void CheckCartPage();

    bool isFillPending = false;
};

} // namespace Tesk
