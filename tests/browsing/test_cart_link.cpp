#include "browser/WebBrowser.h"
#include "cart/dialogs/frmShoppingCartAmount.h"
#include "cart/model/clsShoppingCart.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/PageProtocol.h"

#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Tesk;

namespace {

QPushButton *Button(QWidget *dialog, QMessageBox::StandardButton which)
{
    auto *const box = qobject_cast<QMessageBox *>(dialog);
    return box == nullptr ? nullptr : qobject_cast<QPushButton *>(box->button(which));
}

} // namespace

/// How a page puts a product into the cart.
class TestCartLink final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testCartLinkAsksForTheAmountAndAdds()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        ClickInTree(catalogue, FindLongLeaf(catalogue));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        const ResultTable rows = catalogue.Window().Protocol().ProductRows();
        QString message;
        for (int round = 0; round < 2; ++round) {
            QVERIFY(CatalogueWindow::AnswerDialogs(
                [&] {
                    QVERIFY(
                        catalogue.Click(QStringLiteral("#contListRow3 a[href*='setStatusbar']")));
                },
                {[&](QWidget *dialog) {
                     QVERIFY(qobject_cast<frmShoppingCartAmount *>(dialog) != nullptr);
                     QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("3"));
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                 },
                 [&](QWidget *box) {
                     message = qobject_cast<QMessageBox *>(box)->text();
                     QTest::mouseClick(Button(box, QMessageBox::Ok), Qt::LeftButton);
                 }}));
        }
        QCOMPARE(message, catalogue.GetController()
                              .GetText(QStringLiteral("ucShoppingCartAddSuccess2"))
                              .replace(QLatin1String("{0}"), QLatin1String("3")));
        const clsShoppingCart &cart = catalogue.GetController().GetShoppingCart();
        QCOMPARE(cart.Count(), qint16(2));
        QCOMPARE(cart.Entries().At(0)->ArtNr, GetField(QStringLiteral("p.artNr"), rows, 3));
        QCOMPARE(cart.Entries().At(0)->Amount, qint16(3));
        // The row's own click, which opens the details, must not have run as well.
        QVERIFY(catalogue.Window().wbMain->Address().contains(QLatin1String("product_list.html")));
    }

    void testEqualStatusTextAsksOnlyOnce()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        int dialogs = 0;
        const auto say = [&](const QString &text) {
            QSignalSpy status(catalogue.Window().wbMain, &WebBrowser::StatusTextChange);
            QTimer closer;
            QObject::connect(&closer, &QTimer::timeout, &closer, [&] {
                if (QWidget *const dialog = QApplication::activeModalWidget()) {
                    ++dialogs;
                    QTest::keyClick(dialog, Qt::Key_Escape);
                }
            });
            closer.start(10);
            catalogue.Evaluate(QStringLiteral("window.status = '%1'").arg(text));
            QVERIFY(WaitUntil([&] { return status.size() == 1; }));
            QVERIFY(WaitUntil([&] { return QApplication::activeModalWidget() == nullptr; }));
        };
        say(QStringLiteral("shoppingCart:1"));
        QCOMPARE(dialogs, 1);
        say(QStringLiteral("shoppingCart:1"));
        QCOMPARE(dialogs, 1);
        say(QStringLiteral("again shoppingCart:1"));
        QCOMPARE(dialogs, 2);
        say(QStringLiteral("shoppingCart:1"));
        QCOMPARE(dialogs, 3);
        say(QStringLiteral("shoppingCart:"));
        QCOMPARE(dialogs, 3);
        say(QStringLiteral("something else"));
        QCOMPARE(dialogs, 3);
        QCOMPARE(catalogue.GetController().GetShoppingCart().Count(), qint16(0));
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestCartLink>(argc, argv);
}
#include "test_cart_link.moc"
