#include "base/Errors.h"
#include "base/tests/TranslatedErrors.h"
#include "cart/model/clsShoppingCart.h"

#include <QTest>

using namespace Tesk;

namespace {

ShoppingCartItemList::Item Item(const QString &id)
{
    auto item = std::make_shared<clsShoppingCartItem>();
    item->Id = id;
    item->ArtNr = QStringLiteral("AB 1");
    item->Title = QStringLiteral("Clamp");
    item->Amount = 2;
    return item;
}

clsShoppingCart CartOf(const QString &ids)
{
    clsShoppingCart cart;
    for (const QChar id : ids)
        cart.AddItem(Item(id));
    return cart;
}

ShoppingCartItemList ListOf(int count)
{
    ShoppingCartItemList list;
    const ShoppingCartItemList::Item item = Item(QStringLiteral("a"));
    for (int i = 0; i < count; ++i)
        list.Append(item);
    return list;
}

QString Ids(const clsShoppingCart &cart)
{
    QString ids;
    for (const ShoppingCartItemList::Item &item : cart.Entries())
        ids += item->Id;
    return ids;
}

} // namespace

class TestShoppingCart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testEmptyCart()
    {
        const clsShoppingCart cart;
        QCOMPARE(cart.Count(), qint16(0));
        QCOMPARE(cart.Serialize(), QString());
        QCOMPARE(cart.Entries().LowerBound(), 0);
        QCOMPARE(cart.Entries().UpperBound(), -1);
    }

    void testAddMakesAnItemOfItsValues()
    {
        clsShoppingCart cart;
        cart.Add(QStringLiteral("7"), QStringLiteral("AB 1"), QStringLiteral("Clamp"),
                 QStringLiteral("2.5"));
        QCOMPARE(cart.Count(), qint16(1));
        const clsShoppingCartItem &item = *cart.Entries().At(0);
        QCOMPARE(item.Id, QStringLiteral("7"));
        QCOMPARE(item.ArtNr, QStringLiteral("AB 1"));
        QCOMPARE(item.Title, QStringLiteral("Clamp"));
        QCOMPARE(item.Amount, qint16(2));
        QCOMPARE(item.AltCategory, QString());
        QVERIFY(!item.IsSet());
    }

    void testAddRefusesAnAmountThatIsNoWholeNumberOf16Bits()
    {
        clsShoppingCart cart;
        const QString text = QStringLiteral("1");
        for (const char *amount : {"32768", "-32769", "two", ""}) {
            QVERIFY_THROWS_EXCEPTION(ConversionError,
                                     cart.Add(text, text, text, QString::fromLatin1(amount)));
        }
        QCOMPARE(cart.Count(), qint16(0));
    }

    void testAddItemKeepsTheObjectItself()
    {
        clsShoppingCart cart;
        const ShoppingCartItemList::Item item = Item(QStringLiteral("7"));
        cart.AddItem(item);
        item->Amount = 9;
        QCOMPARE(cart.Entries().At(0)->Amount, qint16(9));
    }

    void testSameArticleTwiceStaysTwoLines()
    {
        clsShoppingCart cart;
        const ShoppingCartItemList::Item first = Item(QStringLiteral("7"));
        first->AltCategory = QStringLiteral("OR 1");
        const ShoppingCartItemList::Item second = Item(QStringLiteral("7"));
        second->Amount = 5;
        cart.AddItem(first);
        cart.AddItem(second);
        QCOMPARE(cart.Count(), qint16(2));
        QCOMPARE(cart.Serialize(), QStringLiteral("7;AB 1;Clamp;2;OR 1\r\n\r\n"
                                                  "7;AB 1;Clamp;5;\r\n\r\n"));
    }

    void testClearEmptiesTheCart()
    {
        clsShoppingCart cart = CartOf(QStringLiteral("ab"));
        cart.Clear();
        QCOMPARE(cart.Count(), qint16(0));
        QCOMPARE(cart.Entries().UpperBound(), -1);
    }

    void testDeletingTheOnlyItemLeavesACartThatFillsAgain()
    {
        clsShoppingCart cart = CartOf(QStringLiteral("a"));
        cart.DeleteItem(0, -1);
        QCOMPARE(cart.Count(), qint16(0));
        QCOMPARE(cart.Entries().LowerBound(), 0);
        QCOMPARE(cart.Entries().UpperBound(), -1);
        cart.AddItem(Item(QStringLiteral("b")));
        QCOMPARE(cart.Entries().At(0)->Id, QStringLiteral("b"));
    }

    void testDeletingAnItemMovesTheLaterOnesUp()
    {
        clsShoppingCart cart = CartOf(QStringLiteral("abc"));
        cart.DeleteItem(1, -1);
        QCOMPARE(Ids(cart), QStringLiteral("ac"));
        QCOMPARE(cart.Count(), qint16(2));
    }

    void testDeletingBehindTheLastDropsTheLast()
    {
        clsShoppingCart cart = CartOf(QStringLiteral("abc"));
        cart.DeleteItem(9, -1);
        QCOMPARE(Ids(cart), QStringLiteral("ab"));
    }

    void testDeletingAMemberKeepsTheItem()
    {
        clsShoppingCart cart = CartOf(QStringLiteral("a"));
        ShoppingCartItemList members;
        members.Append(Item(QStringLiteral("x")));
        members.Append(Item(QStringLiteral("y")));
        cart.Entries().At(0)->SetItems = members;
        cart.DeleteItem(0, 0);
        QCOMPARE(cart.Count(), qint16(1));
        QCOMPARE(cart.Entries().At(0)->SetItems->UpperBound(), 0);
        QCOMPARE(cart.Entries().At(0)->SetItems->At(0)->Id, QStringLiteral("y"));
    }

    void testDeletingAMemberOfAnUnknownItemIsAnError()
    {
        clsShoppingCart cart = CartOf(QStringLiteral("a"));
        QVERIFY_THROWS_EXCEPTION(SubscriptError, cart.DeleteItem(1, 0));
    }

    void testEntriesAreReplacedWhole()
    {
        clsShoppingCart cart = CartOf(QStringLiteral("ab"));
        ShoppingCartItemList list(1);
        list.Append(Item(QStringLiteral("c")));
        cart.SetEntries(list);
        QCOMPARE(cart.Count(), qint16(1));
        QCOMPARE(cart.Entries().LowerBound(), 1);
        QCOMPARE(Ids(cart), QStringLiteral("c"));
    }

    void testCountBeyond16BitsIsAnOverflow()
    {
        clsShoppingCart cart;
        cart.SetEntries(ListOf(32767));
        QCOMPARE(cart.Count(), qint16(32767));
        cart.SetEntries(ListOf(32768));
        QVERIFY_THROWS_EXCEPTION(OverflowError, cart.Count());
    }

    void testFullCartTakesNoFurtherItem()
    {
        clsShoppingCart cart;
        cart.SetEntries(ListOf(32766));
        cart.AddItem(Item(QStringLiteral("b")));
        const QString one = QStringLiteral("1");
        QVERIFY_THROWS_EXCEPTION(OverflowError, cart.AddItem(Item(QStringLiteral("c"))));
        QVERIFY_THROWS_EXCEPTION(OverflowError, cart.Add(one, one, one, one));
        QVERIFY(KeyAndValuesOfError([&] {
                    cart.AddItem(Item(one));
                }).startsWith(QStringLiteral("errorCartFull|32767|")));
        QCOMPARE(cart.Count(), qint16(32767));
        QCOMPARE(cart.Entries().At(32766)->Id, QStringLiteral("b"));
        cart.DeleteItem(0, -1);
        cart.AddItem(Item(QStringLiteral("d")));
        QCOMPARE(cart.Count(), qint16(32767));
    }
};

QTEST_APPLESS_MAIN(TestShoppingCart)
#include "TestShoppingCart.moc"
