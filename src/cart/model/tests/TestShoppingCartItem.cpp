#include "base/Errors.h"
#include "cart/model/clsShoppingCartItem.h"

#include <QTest>

using namespace Tesk;

namespace {

clsShoppingCartItem Clamp()
{
    clsShoppingCartItem item;
    item.Id = QStringLiteral("127");
    item.ArtNr = QStringLiteral("AB 12-1");
    item.Title = QStringLiteral("Clamp straight");
    item.Amount = 3;
    item.AltCategory = QStringLiteral("OR 2");
    return item;
}

SetTemplateRow Row(const char *id, const char *amount)
{
    return {QString::fromLatin1(id), QStringLiteral("N ") + QString::fromLatin1(id),
            QStringLiteral("Title ") + QString::fromLatin1(id), QString::fromLatin1(amount)};
}

} // namespace

class TestShoppingCartItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testNewItemIsNoSet() { QVERIFY(!clsShoppingCartItem().IsSet()); }

    void testEmptyMemberListMakesASet()
    {
        clsShoppingCartItem item = Clamp();
        item.SetItems = ShoppingCartItemList();
        QVERIFY(item.IsSet());
    }

    void testSingleArticleIsOneLineAndAnEmptyOne()
    {
        QCOMPARE(Clamp().Serialize(), QStringLiteral("127;AB 12-1;Clamp straight;3;OR 2\r\n\r\n"));
    }

    void testEmptySetSerialisesLikeASingleArticle()
    {
        clsShoppingCartItem item = Clamp();
        item.SetItems = ShoppingCartItemList();
        QCOMPARE(item.Serialize(), Clamp().Serialize());
    }

    void testSetIsFollowedByItsMembers()
    {
        clsShoppingCartItem item = Clamp();
        item.AltCategory.clear();
        item.AddSetTemplate({Row("88", "4"), Row("91", "2")}, 1);
        QCOMPARE(item.Serialize(), QStringLiteral("127;AB 12-1;Clamp straight;3;\r\n"
                                                  "88;N 88;Title 88;4;\r\n"
                                                  "91;N 91;Title 91;2;\r\n"
                                                  "\r\n"));
    }

    void testFieldsAreWrittenAsTheyStand()
    {
        clsShoppingCartItem item = Clamp();
        item.Title = QStringLiteral(u"\"Sch\u00E4re\"; gro\u00DF");
        item.Amount = -5;
        item.AltCategory = QStringLiteral("%1");
        QCOMPARE(item.Serialize(),
                 QStringLiteral(u"127;AB 12-1;\"Sch\u00E4re\"; gro\u00DF;-5;%1\r\n\r\n"));
    }

    void testTemplateKeepsTheRowsPositions()
    {
        clsShoppingCartItem item;
        item.AddSetTemplate({Row("1", "4"), Row("2", " 2 ")}, 1);
        QVERIFY(item.IsSet());
        QCOMPARE(item.SetItems->LowerBound(), 1);
        QCOMPARE(item.SetItems->UpperBound(), 2);
        const clsShoppingCartItem &second = *item.SetItems->At(2);
        QCOMPARE(second.Id, QStringLiteral("2"));
        QCOMPARE(second.ArtNr, QStringLiteral("N 2"));
        QCOMPARE(second.Title, QStringLiteral("Title 2"));
        QCOMPARE(second.Amount, qint16(2));
        QVERIFY(!second.IsSet());
    }

    void testTemplateReplacesTheMembers()
    {
        clsShoppingCartItem item;
        item.AddSetTemplate({Row("1", "1"), Row("2", "1")});
        item.AddSetTemplate({Row("3", "1")});
        QCOMPARE(item.SetItems->UpperBound(), 0);
        QCOMPARE(item.SetItems->At(0)->Id, QStringLiteral("3"));
    }

    void testTemplateRefusesAmountsThatAreNoWholeNumberOf16Bits()
    {
        clsShoppingCartItem item;
        QVERIFY_THROWS_EXCEPTION(ConversionError, item.AddSetTemplate({Row("1", "32768")}));
        QVERIFY_THROWS_EXCEPTION(ConversionError, item.AddSetTemplate({Row("1", "x")}));
        QVERIFY_THROWS_EXCEPTION(ConversionError, item.AddSetTemplate({Row("1", "")}));
        QVERIFY(!item.IsSet());
    }

    void testDeletingTheFirstMemberMovesTheOthersUp()
    {
        clsShoppingCartItem item;
        item.AddSetTemplate({Row("1", "1"), Row("2", "1"), Row("3", "1")});
        item.DeleteSubItem(0);
        QCOMPARE(item.SetItems->LowerBound(), 0);
        QCOMPARE(item.SetItems->UpperBound(), 1);
        QCOMPARE(item.SetItems->At(0)->Id, QStringLiteral("2"));
        QCOMPARE(item.SetItems->At(1)->Id, QStringLiteral("3"));
    }

    void testDeletingTheOnlyMemberLeavesAnEmptySet()
    {
        clsShoppingCartItem item;
        item.AddSetTemplate({Row("1", "1")});
        item.DeleteSubItem(0);
        QVERIFY(item.IsSet());
        QCOMPARE(item.SetItems->UpperBound(), -1);
    }

    void testSingleMemberAtPositionOneCannotBeDeleted()
    {
        clsShoppingCartItem item;
        item.AddSetTemplate({Row("1", "1")}, 1);
        QVERIFY_THROWS_EXCEPTION(SubscriptError, item.DeleteSubItem(1));
    }

    void testSingleArticleHasNoMemberToDelete()
    {
        clsShoppingCartItem item = Clamp();
        QVERIFY_THROWS_EXCEPTION(SubscriptError, item.DeleteSubItem(0));
    }
};

QTEST_APPLESS_MAIN(TestShoppingCartItem)
#include "TestShoppingCartItem.moc"
