#include "cart/pane/CartAddress.h"

#include <QTest>

using namespace Tesk;

namespace {

const QString Base = QStringLiteral("file:///opt/Katalog 50% #1");

} // namespace

class TestCartAddress final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testActionStandsInTheAddress_data()
    {
        QTest::addColumn<CartPageAction>("action");
        QTest::addColumn<QString>("address");
        const QString cart = Base + QStringLiteral("/content/shopping_cart.html");
        QTest::newRow("none") << CartPageAction::None << cart;
        QTest::newRow("save") << CartPageAction::Save << cart + QStringLiteral("?action=doSave");
        QTest::newRow("request") << CartPageAction::SendRequest
                                 << cart + QStringLiteral("?action=doSendRequest");
        QTest::newRow("order") << CartPageAction::SendOrder
                               << cart + QStringLiteral("?action=doSendOrder");
    }

    void testActionStandsInTheAddress()
    {
        QFETCH(const CartPageAction, action);
        QFETCH(const QString, address);
        QCOMPARE(Base + CartAddress::Cart(action), address);
        QVERIFY(CartAddress::IsCart(address));
        QVERIFY(!CartAddress::IsOrderForm(address));
        QCOMPARE(CartAddress::ActionOf(address), action);
    }

    void testChangedCartIsFollowedByNothing()
    {
        const QString address = Base + CartAddress::ChangedCart();
        QCOMPARE(address, Base + QStringLiteral("/content/shopping_cart.html?action=doLoad"));
        QVERIFY(CartAddress::IsCart(address));
        QCOMPARE(CartAddress::ActionOf(address), CartPageAction::None);
    }

    void testOrderFormIsPrintedOnDemand()
    {
        const QString shown = Base + CartAddress::OrderForm(false);
        const QString printed = Base + CartAddress::OrderForm(true);
        QCOMPARE(shown, Base + QStringLiteral("/content/order_form.html"));
        QCOMPARE(printed, Base + QStringLiteral("/content/order_form.html?action=doPrint"));
        QVERIFY(CartAddress::IsOrderForm(shown) && CartAddress::IsOrderForm(printed));
        QCOMPARE(CartAddress::ActionOf(shown), CartPageAction::None);
        QCOMPARE(CartAddress::ActionOf(printed), CartPageAction::Print);
    }

    void testOnlyTheOrderFormIsPrinted()
    {
        const QString cart = Base + QStringLiteral("/content/shopping_cart.html?action=doPrint");
        QCOMPARE(CartAddress::ActionOf(cart), CartPageAction::None);
        const QString welcome = Base + QStringLiteral("/content/welcome.html?action=doPrint");
        QCOMPARE(CartAddress::ActionOf(welcome), CartPageAction::None);
    }

    void testProductsPageEndsWithItsId_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("id");
        QTest::newRow("number") << QStringLiteral("?id=17") << QStringLiteral("17");
        QTest::newRow("no number") << QStringLiteral("?id=a b") << QStringLiteral("a b");
        QTest::newRow("encoded signs") << QStringLiteral("?id=7%238%26") << QStringLiteral("7#8&");
        QTest::newRow("empty") << QStringLiteral("?id=") << QString();
        QTest::newRow("several parameters") << QStringLiteral("?a=1&id=2") << QStringLiteral("2");
    }

    void testProductsPageEndsWithItsId()
    {
        QFETCH(const QString, query);
        QFETCH(const QString, id);
        const std::optional<QString> read =
            CartAddress::ProductId(Base + QStringLiteral("/content/product_details.html") + query);
        QVERIFY(read.has_value());
        QCOMPARE(*read, id);
    }

    void testOtherPagesHaveNoProduct()
    {
        QVERIFY(!CartAddress::ProductId(Base + QStringLiteral("/content/product_list.html?id=1")));
    }
};

QTEST_APPLESS_MAIN(TestCartAddress)
#include "TestCartAddress.moc"
