#include "cart/dialogs/tests/AddDialog.h"

using namespace Tesk;

/// The amounts: which ones are in order, and when their colour changes.
class TestShoppingCartAddAmounts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { d = std::make_unique<AddDialog>(); }
    void cleanup() { d.reset(); }

    void testAmountInOrder_data();
    void testAmountInOrder();
    void testAmountInError_data();
    void testAmountInError();
    void testMendedAmountTurnsWhiteAgain();
    void testEmptiedAmountTurnsWhiteOnLeaving();
    void testArticleWithoutAmountBarsOK();
    void testAmountErrorOfAnEmptyRowBarsOK();

private:
    std::unique_ptr<AddDialog> d;
};

void TestShoppingCartAddAmounts::testAmountInOrder_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("amount");
    QTest::newRow("one") << QStringLiteral("1") << 1;
    QTest::newRow("largest") << QStringLiteral("999") << 999;
    QTest::newRow("point") << QStringLiteral("1.5") << 2;
    QTest::newRow("comma") << QStringLiteral("2,5") << 2;
    QTest::newRow("four decimals") << QStringLiteral("1.2500") << 1;
    QTest::newRow("blanks around") << QStringLiteral(" 7 ") << 7;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("blank") << QStringLiteral(" ") << 0;
}

void TestShoppingCartAddAmounts::testAmountInOrder()
{
    QFETCH(const QString, text);
    QFETCH(const int, amount);
    d->TypeAndLeave(d->Amount(5), qPrintable(text));
    QCOMPARE(AddDialog::ColourOf(d->Amount(5)), InOrder);
    QCOMPARE(d->MessageCount(), 0);
    QCOMPARE(int(d->Dialog().Rows()[5].amount), amount);
}

void TestShoppingCartAddAmounts::testAmountInError_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << QStringLiteral("0");
    QTest::newRow("thousand") << QStringLiteral("1000");
    QTest::newRow("thousand with a point") << QStringLiteral("1.000");
    QTest::newRow("thousands with a comma") << QStringLiteral("12,500");
    QTest::newRow("just below one") << QStringLiteral("0.99");
    QTest::newRow("just above the largest") << QStringLiteral("999,5");
    QTest::newRow("negative") << QStringLiteral("-5");
    QTest::newRow("word") << QStringLiteral("two");
    QTest::newRow("number and word") << QStringLiteral("2x");
    QTest::newRow("too large for any number") << QString(400, QLatin1Char('9'));
}

void TestShoppingCartAddAmounts::testAmountInError()
{
    QFETCH(const QString, text);
    d->TypeAndLeave(d->ArtNr(5), "AB 10/115");
    d->TypeAndLeave(d->Amount(5), qPrintable(text));
    QCOMPARE(AddDialog::ColourOf(d->Amount(5)), InError);
    QCOMPARE(d->MessageText(), AmountMessage);
    QCOMPARE(d->MessageCount(), 1);
    d->CloseMessage();
    QCOMPARE(d->Amount(5)->text(), text);
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), AmountMessage);
    QCOMPARE(d->MessageCount(), 2);
    QVERIFY(d->Dialog().isVisible());
}

void TestShoppingCartAddAmounts::testMendedAmountTurnsWhiteAgain()
{
    d->TypeAndLeave(d->ArtNr(), "AB 10/115");
    d->TypeAndLeave(d->Amount(), "1000");
    d->CloseMessage();
    d->Click(d->Amount());
    QTest::keyClick(d->Amount(), Qt::Key_0);
    QCOMPARE(AddDialog::ColourOf(d->Amount()), InError);
    d->Amount()->selectAll();
    QTest::keyClick(d->Amount(), Qt::Key_5);
    QCOMPARE(AddDialog::ColourOf(d->Amount()), InOrder);
    d->Click(d->OK());
    QCOMPARE(d->Dialog().Action(), 1);
    QCOMPARE(d->MessageCount(), 1);
}

void TestShoppingCartAddAmounts::testEmptiedAmountTurnsWhiteOnLeaving()
{
    d->TypeAndLeave(d->Amount(), "1000");
    d->CloseMessage();
    d->TypeAndLeave(d->Amount(), "");
    QCOMPARE(AddDialog::ColourOf(d->Amount()), InOrder);
    QCOMPARE(d->MessageCount(), 1);
}

void TestShoppingCartAddAmounts::testArticleWithoutAmountBarsOK()
{
    d->TypeAndLeave(d->ArtNr(), "AB 10/115");
    d->TypeAndLeave(d->Amount(), "");
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), AmountMessage);
    QCOMPARE(AddDialog::ColourOf(d->Amount()), InError);
    d->CloseMessage();
    QVERIFY(d->Amount()->hasFocus());
    QTest::keyClick(d->Amount(), Qt::Key_3);
    d->Click(d->OK());
    QCOMPARE(d->Dialog().Action(), 1);
}

void TestShoppingCartAddAmounts::testAmountErrorOfAnEmptyRowBarsOK()
{
    d->TypeAndLeave(d->ArtNr(0), "AB 10/115");
    d->TypeAndLeave(d->Amount(3), "0");
    d->CloseMessage();
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), AmountMessage);
    QVERIFY(d->Dialog().isVisible());
}

QTEST_MAIN(TestShoppingCartAddAmounts)
#include "TestShoppingCartAddAmounts.moc"
