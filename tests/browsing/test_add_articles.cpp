#include "cart/dialogs/frmShoppingCartAdd.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/UserActions.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Tesk;

namespace {

QString TextIn(QWidget *dialog, const char *field)
{
    return dialog->findChild<QLineEdit *>(QLatin1String(field))->text();
}

} // namespace

/// Articles put into the cart by their numbers, on the cart's tab.
class TestAddArticles final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testOwnAndCompetitorsNumbers()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(!cart.Button("btnSendOrder")->isEnabled());
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { cart.Press("btnManual"); }, {[&](QWidget *dialog) {
                QVERIFY(qobject_cast<frmShoppingCartAdd *>(dialog) != nullptr);
                // The blank before the first figure is the catalogue's, not the user's.
                Fill(dialog, "tbArtNrTesk0", QStringLiteral("AB10/116"));
                Fill(dialog, "tbAmount0", QStringLiteral("999"));
                Fill(dialog, "tbCatNr0", QStringLiteral("OR 2"));
                QCOMPARE(TextIn(dialog, "tbArtNrTesk0"), QStringLiteral("AB 10/116"));
                Fill(dialog, "tbArtNrCompetition1", QStringLiteral("11-010-11"));
                Fill(dialog, "tbAmount1", QStringLiteral("2"));
                QCOMPARE(TextIn(dialog, "tbArtNrTesk1"), QStringLiteral("AB 10/115"));
                // Row 2 stays empty; equal articles stay lines of their own.
                Fill(dialog, "tbArtNrTesk3", QStringLiteral("AB 10/116"));
                Fill(dialog, "tbCatNr3", QStringLiteral("Löffel: 50% <neu>"));
                ClickButton(dialog, "btnOK");
            }}));
        QVERIFY(cart.WaitForLines(
            {QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|OR 2|999"),
             QStringLiteral("AB 10/115|Operating scissors, straight, sharp/sharp|2"),
             QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|"
                            "Löffel: 50% <neu>|1")}));
        QVERIFY(cart.Button("btnSendOrder")->isEnabled());
    }

    void testUnknownNumberIsToldAndCanBeMended()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QString message;
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { cart.Press("btnManual"); }, {[&](QWidget *dialog) {
                Fill(dialog, "tbArtNrTesk0", QStringLiteral("ZZ 99/999"));
                QVERIFY(CatalogueWindow::AnswerDialogs([&] { PressKey(dialog, Qt::Key_Tab); },
                                                       {PressButton(QMessageBox::Ok, &message)}));
                QCOMPARE(TextIn(dialog, "tbArtNrTesk0"), QStringLiteral("ZZ 99/999"));
                Fill(dialog, "tbArtNrTesk0", QStringLiteral("AB 10/117"));
                ClickButton(dialog, "btnOK");
            }}));
        QCOMPARE(message, QStringLiteral("This article number is not in the catalogue. Please "
                                         "check your entry."));
        QVERIFY(cart.WaitForLines(
            {QStringLiteral("AB 10/117|Operating scissors, straight, blunt/blunt|1")}));
    }

    void testCancelAddsNothing()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { cart.Press("btnManual"); }, {[&](QWidget *dialog) {
                Fill(dialog, "tbArtNrTesk0", QStringLiteral("AB 10/117"));
                ClickButton(dialog, "btnCancel");
            }}));
        QVERIFY(cart.WaitForText(QStringLiteral("Your shopping cart is empty.")));
        QVERIFY(!cart.Button("btnSave")->isEnabled());
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestAddArticles>(argc, argv);
}
#include "test_add_articles.moc"
