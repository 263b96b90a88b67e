#include "base/Errors.h"
#include "base/tests/TranslatedErrors.h"
#include "cart/model/ShoppingCartItemList.h"
#include "cart/model/clsShoppingCartItem.h"

#include <QTest>

using namespace Tesk;

namespace {

/// A list whose items bear the ids "a", "b", "c" ... from the lower bound on.
ShoppingCartItemList ListOf(int count, int lowerBound)
{
    ShoppingCartItemList list(lowerBound);
    for (int i = 0; i < count; ++i) {
        auto item = std::make_shared<clsShoppingCartItem>();
        item->Id = QChar(u'a' + i);
        list.Append(item);
    }
    return list;
}

QString Ids(const ShoppingCartItemList &list)
{
    QString ids;
    for (int i = list.LowerBound(); i <= list.UpperBound(); ++i)
        ids += list.At(i)->Id;
    return ids;
}

} // namespace

class TestShoppingCartItemList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testEmptyListEndsBeforeItsStart()
    {
        const ShoppingCartItemList list;
        QCOMPARE(list.LowerBound(), 0);
        QCOMPARE(list.UpperBound(), -1);
    }

    void testAppendingKeepsTheLowerBound()
    {
        const ShoppingCartItemList fromZero = ListOf(2, 0);
        QCOMPARE(fromZero.LowerBound(), 0);
        QCOMPARE(fromZero.UpperBound(), 1);
        const ShoppingCartItemList fromOne = ListOf(2, 1);
        QCOMPARE(fromOne.LowerBound(), 1);
        QCOMPARE(fromOne.UpperBound(), 2);
        QCOMPARE(fromOne.At(1)->Id, QStringLiteral("a"));
    }

    void testPositionsOutsideTheBoundsAreErrors()
    {
        const ShoppingCartItemList list = ListOf(2, 1);
        QVERIFY_THROWS_EXCEPTION(SubscriptError, list.At(0));
        QVERIFY_THROWS_EXCEPTION(SubscriptError, list.At(3));
        QVERIFY_THROWS_EXCEPTION(SubscriptError, ShoppingCartItemList().At(0));
    }

    void testRemove_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("lowerBound");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("ids");
        QTest::addColumn<int>("lowerBoundAfter");
        QTest::newRow("first of three") << 3 << 0 << 0 << QStringLiteral("bc") << 0;
        QTest::newRow("middle of three") << 3 << 0 << 1 << QStringLiteral("ac") << 0;
        QTest::newRow("last of three") << 3 << 0 << 2 << QStringLiteral("ab") << 0;
        QTest::newRow("behind the last") << 3 << 0 << 7 << QStringLiteral("ab") << 0;
        QTest::newRow("before the first") << 3 << 0 << -1 << QStringLiteral("bc") << 0;
        QTest::newRow("only one") << 1 << 0 << 0 << QString() << 0;
        QTest::newRow("only one, by a later position") << 1 << 0 << 5 << QString() << 0;
        QTest::newRow("of an empty list") << 0 << 0 << 0 << QString() << 0;
        QTest::newRow("from one: first") << 3 << 1 << 1 << QStringLiteral("bc") << 1;
        QTest::newRow("from one: last") << 3 << 1 << 3 << QStringLiteral("ab") << 1;
        QTest::newRow("from one: position 0") << 3 << 1 << 0 << QStringLiteral("bc") << 1;
        QTest::newRow("from one: of two") << 2 << 1 << 2 << QStringLiteral("a") << 1;
        QTest::newRow("from one: of an empty list") << 0 << 1 << 1 << QString() << 0;
    }

    void testRemove()
    {
        QFETCH(int, count);
        QFETCH(int, lowerBound);
        QFETCH(int, index);
        QFETCH(QString, ids);
        QFETCH(int, lowerBoundAfter);
        ShoppingCartItemList list = ListOf(count, lowerBound);
        list.Remove(index);
        QCOMPARE(Ids(list), ids);
        QCOMPARE(list.LowerBound(), lowerBoundAfter);
    }

    void testSingleItemOfAListFromOneCannotBeRemoved()
    {
        ShoppingCartItemList list = ListOf(1, 1);
        QVERIFY_THROWS_EXCEPTION(SubscriptError, list.Remove(1));
        QCOMPARE(Ids(list), QStringLiteral("a"));
        QVERIFY(KeyAndValuesOfError([&] {
                    list.Remove(1);
                }).startsWith(QStringLiteral("errorCartLastMember|")));
    }

    void testCopyHoldsTheSameItemsInAListOfItsOwn()
    {
        const ShoppingCartItemList list = ListOf(2, 0);
        ShoppingCartItemList copy = list;
        copy.Remove(1);
        QCOMPARE(list.UpperBound(), 1);
        QCOMPARE(copy.At(0), list.At(0));
    }
};

QTEST_APPLESS_MAIN(TestShoppingCartItemList)
#include "TestShoppingCartItemList.moc"
