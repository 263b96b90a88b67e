#include "base/Errors.h"
#include "cart/model/clsShoppingCart.h"
#include "cart/pane/CartMessages.h"

#include <QTest>

#include <memory>

using namespace Tesk;

namespace {

std::shared_ptr<clsShoppingCartItem> Item(const char *artNr, qint16 amount)
{
    auto item = std::make_shared<clsShoppingCartItem>();
    item->ArtNr = QLatin1String(artNr);
    item->Amount = amount;
    item->AltCategory = QStringLiteral("before");
    return item;
}

/// The cart's lines as "number amount category", those of members with their indexes.
QStringList Lines(const clsShoppingCart &cart)
{
    const auto line = [](const clsShoppingCartItem &item) {
        return QStringLiteral("%1 %2 %3").arg(item.ArtNr).arg(item.Amount).arg(item.AltCategory);
    };
    QStringList lines;
    for (const auto &item : cart.Entries()) {
        lines.append(line(*item));
        if (!item->SetItems)
            continue;
        for (const auto &member : *item->SetItems)
            lines.append(u'-' + line(*member));
    }
    return lines;
}

} // namespace

/// What the page's reports do to a cart of an article, a set of two members (from 1) and an
/// article.
class TestCartMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testAmount_data();
    void testAmount();
    void testAmountOfAMember();
    void testCategory_data();
    void testCategory();
    void testCategoryOfAMember();
    void testReportsThatChangeNothing_data();
    void testReportsThatChangeNothing();
    void testDeletionIsToldFromOtherTexts();
    void testDeletesAnItem();
    void testDeletesAMember();
    void testDeletionThatNamesNoLineIsAnError_data();
    void testDeletionThatNamesNoLineIsAnError();

private:
    clsShoppingCart cart;
    QStringList linesBefore;
};

void TestCartMessages::init()
{
    cart = {};
    cart.AddItem(Item("A", 2));
    const auto set = Item("S", 2);
    set->SetItems = ShoppingCartItemList(1);
    set->SetItems->Append(Item("M1", 2));
    set->SetItems->Append(Item("M2", 2));
    cart.AddItem(set);
    cart.AddItem(Item("B", 2));
    linesBefore = Lines(cart);
}

void TestCartMessages::testAmount_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("stored");
    QTest::newRow("1") << QStringLiteral("1") << 1;
    QTest::newRow("999") << QStringLiteral("999") << 999;
    QTest::newRow("0") << QStringLiteral("0") << 1;
    QTest::newRow("-5") << QStringLiteral("-5") << 1;
    QTest::newRow("1000") << QStringLiteral("1000") << 999;
    QTest::newRow("1200") << QStringLiteral("1200") << 999;
    QTest::newRow("32767") << QStringLiteral("32767") << 999;
    QTest::newRow("-32768") << QStringLiteral("-32768") << 1;
    QTest::newRow("abc") << QStringLiteral("abc") << 1;
    QTest::newRow("nothing") << QString() << 1;
    QTest::newRow("3 pieces") << QStringLiteral("3 pieces") << 1;
    QTest::newRow("blanks around") << QStringLiteral(" 7 ") << 7;
    QTest::newRow("half to even, down") << QStringLiteral("2.5") << 2;
    QTest::newRow("half to even, up") << QStringLiteral("3,5") << 4;
    QTest::newRow("exponent") << QStringLiteral("1e2") << 100;
    QTest::newRow("thousands") << QStringLiteral("12,500") << 1;
    QTest::newRow("a further piece") << QStringLiteral("5:6") << 5;
}

void TestCartMessages::testAmount()
{
    QFETCH(const QString, typed);
    QFETCH(const int, stored);
    CartMessages::StoreEdit(QStringLiteral("amountChange:fld_2:") + typed, cart);
    linesBefore.last() = QStringLiteral("B %1 before").arg(stored);
    QCOMPARE(Lines(cart), linesBefore);
}

void TestCartMessages::testAmountOfAMember()
{
    CartMessages::StoreEdit(QStringLiteral("amountChange:fld_1_2:12"), cart);
    linesBefore[3] = QStringLiteral("-M2 12 before");
    QCOMPARE(Lines(cart), linesBefore);
}

void TestCartMessages::testCategory_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("a text") << QStringLiteral("OR 2");
    QTest::newRow("colons") << QStringLiteral("OR:2:left");
    QTest::newRow("colons at the ends") << QStringLiteral("::OR::");
    QTest::newRow("nothing") << QString();
    QTest::newRow("looks like a report") << QStringLiteral("amountChange:fld_0:9");
    QTest::newRow("looks like a deletion") << QStringLiteral("delItem:0");
    QTest::newRow("markup") << QStringLiteral("<b>\"it's\"</b> ü");
}

void TestCartMessages::testCategory()
{
    QFETCH(const QString, typed);
    CartMessages::StoreEdit(QStringLiteral("altCategoryChange:cat_0:") + typed, cart);
    linesBefore.first() = QStringLiteral("A 2 ") + typed;
    QCOMPARE(Lines(cart), linesBefore);
}

void TestCartMessages::testCategoryOfAMember()
{
    CartMessages::StoreEdit(QStringLiteral("altCategoryChange:cat_1_1:a:b"), cart);
    linesBefore[2] = QStringLiteral("-M1 2 a:b");
    QCOMPARE(Lines(cart), linesBefore);
}

void TestCartMessages::testReportsThatChangeNothing_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *text) {
        QTest::newRow(name) << QString::fromUtf8(text);
    };
    row("amount beyond 16 bits", "amountChange:fld_0:40000");
    row("no such item", "amountChange:fld_3:5");
    row("negative index", "amountChange:fld_-1:5");
    row("no such member", "amountChange:fld_1_3:5");
    row("member before the first", "amountChange:fld_1_0:5");
    row("negative member", "amountChange:fld_1_-1:5");
    row("member of an article", "amountChange:fld_0_0:5");
    row("index beyond 16 bits", "amountChange:fld_70000:5");
    row("index that is no number", "amountChange:fld_x:5");
    row("no key", "amountChange:fld:5");
    row("no amount", "amountChange:fld_0");
    row("no field", "amountChange:");
    row("category, no such item", "altCategoryChange:cat_3:x");
    row("category, no text", "altCategoryChange:cat_0");
    row("other text", "shoppingCart 1:0");
    row("not at the start", "x amountChange:fld_0:5");
    row("empty", "");
    row("deletion", "delItem:0");
}

void TestCartMessages::testReportsThatChangeNothing()
{
    QFETCH(const QString, text);
    CartMessages::StoreEdit(text, cart);
    QCOMPARE(Lines(cart), linesBefore);
}

void TestCartMessages::testDeletionIsToldFromOtherTexts()
{
    QVERIFY(CartMessages::IsDeletion(QStringLiteral("delItem:0")));
    QVERIFY(!CartMessages::IsDeletion(QStringLiteral("altCategoryChange:cat_0:delItem:0")));
    QVERIFY(!CartMessages::IsDeletion(QStringLiteral(" delItem:0")));
    QVERIFY(!CartMessages::IsDeletion(QString()));
}

void TestCartMessages::testDeletesAnItem()
{
    CartMessages::DeleteLine(QStringLiteral("delItem:1"), cart);
    QCOMPARE(Lines(cart), QStringList({linesBefore.first(), linesBefore.last()}));
}

void TestCartMessages::testDeletesAMember()
{
    CartMessages::DeleteLine(QStringLiteral("delItem:1_1"), cart);
    QCOMPARE(Lines(cart),
             QStringList({linesBefore[0], linesBefore[1], linesBefore[3], linesBefore[4]}));
}

void TestCartMessages::testDeletionThatNamesNoLineIsAnError_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("no number") << QStringLiteral("delItem:x");
    QTest::newRow("nothing") << QStringLiteral("delItem:");
    QTest::newRow("beyond 16 bits") << QStringLiteral("delItem:70000");
    QTest::newRow("member of an article") << QStringLiteral("delItem:0_0");
    QTest::newRow("member of no item") << QStringLiteral("delItem:7_0");
}

void TestCartMessages::testDeletionThatNamesNoLineIsAnError()
{
    QFETCH(const QString, text);
    QVERIFY_THROWS_EXCEPTION(CatalogueError, CartMessages::DeleteLine(text, cart));
    QCOMPARE(Lines(cart), linesBefore);
}

QTEST_APPLESS_MAIN(TestCartMessages)
#include "TestCartMessages.moc"
