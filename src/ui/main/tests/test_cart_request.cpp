#include "ui/main/CartRequest.h"

#include "cart/dialogs/frmShoppingCartAmount.h"
#include "core/Controller.h"
#include "core/Registry.h"
#include "core/tests/DialogDriver.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

/// What the user reads when a page has asked for a product to be put into the cart.
class TestCartRequest final : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;
    Registry registry{folder.filePath(QStringLiteral("settings.json"))};
    Controller controller{QStringLiteral(APPLICATION_DIR), registry,
                          folder.filePath(QStringLiteral("cache")), QLocale::c()};
    QWidget window;

    static DialogDriver::Action Confirm(const QString &amount)
    {
        return [amount](QDialog &dialog) {
            QVERIFY(qobject_cast<frmShoppingCartAmount *>(&dialog) != nullptr);
            dialog.findChild<QLineEdit *>(QStringLiteral("tbAmount"))->setText(amount);
            dialog.findChild<QPushButton *>(QStringLiteral("OKButton"))->click();
        };
    }

private Q_SLOTS:
    void initTestCase()
    {
        registry.RegSetString(SettingsKey, QStringLiteral("Location"), QStringLiteral("English"));
        controller.InitApplication();
    }

    void init() { controller.GetShoppingCart().Clear(); }

    void testMessageNamesTheAmountUnlessItIsOne_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("amount");
        QTest::addColumn<QString>("message");
        const QString one = QStringLiteral("The article has been added to the shopping cart.");
        const QString several =
            QStringLiteral("The article has been added to the shopping cart with the amount %1.");
        QTest::newRow("1") << QStringLiteral("1") << 1 << one;
        QTest::newRow("rounded to 1") << QStringLiteral("1.4") << 1 << one;
        QTest::newRow("2") << QStringLiteral("2") << 2 << several.arg(2);
        QTest::newRow("999") << QStringLiteral("999") << 999 << several.arg(999);
    }

    void testMessageNamesTheAmountUnlessItIsOne()
    {
        QFETCH(const QString, typed);
        QFETCH(const int, amount);
        QFETCH(const QString, message);
        CartRequest request(controller, &window);
        QString shown;
        DialogDriver driver({Confirm(typed), [&shown](QDialog &box) {
                                 shown = qobject_cast<QMessageBox *>(&box)->text();
                                 Answer(QMessageBox::Ok)(box);
                             }});
        request.StatusTextChange(QStringLiteral("shoppingCart:1"));
        QVERIFY(driver.IsDone());
        QCOMPARE(shown, message);
        const clsShoppingCart &cart = controller.GetShoppingCart();
        QCOMPARE(cart.Count(), qint16{1});
        QCOMPARE(cart.Entries().At(0)->Id, QStringLiteral("1"));
        QCOMPARE(int{cart.Entries().At(0)->Amount}, amount);
    }

    void testCancelledRequestSaysNothing()
    {
        CartRequest request(controller, &window);
        DialogDriver driver({Cancel, Unexpected("a message")});
        request.StatusTextChange(QStringLiteral("shoppingCart:1"));
        QVERIFY(!driver.IsDone());
        QCOMPARE(controller.GetShoppingCart().Count(), qint16{0});
    }
};

QTEST_MAIN(TestCartRequest)
#include "test_cart_request.moc"
