#include "cart/dialogs/tests/AddDialog.h"

using namespace Tesk;

/// What opens, and what OK makes of the rows.
class TestShoppingCartAdd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { d = std::make_unique<AddDialog>(); }
    void cleanup() { d.reset(); }

    void testOpensWithTenEmptyRows();
    void testOpenedAgainItStartsAfresh();

    void testOKWithoutArticlesSaysSo();
    void testFirstFaultyRowIsReported();
    void testOKConfirms();
    void testRowsAreReadAsFilled();

    void testPastedLineEndIsABlank();
    void testCategoryIsReadAsTyped();

private:
    std::unique_ptr<AddDialog> d;
};

void TestShoppingCartAdd::testOpensWithTenEmptyRows()
{
    for (int row = 0; row < 10; ++row) {
        QCOMPARE(d->ArtNr(row)->text(), QString());
        QCOMPARE(d->Reference(row)->text(), QString());
        QCOMPARE(d->Amount(row)->text(), QStringLiteral("1"));
        QCOMPARE(d->Category(row)->text(), QString());
        QCOMPARE(AddDialog::ColourOf(d->ArtNr(row)), InOrder);
        QCOMPARE(AddDialog::ColourOf(d->Amount(row)), InOrder);
    }
    QVERIFY(!d->Dialog().findChild<QLineEdit *>(QStringLiteral("tbAmount10")));
    QVERIFY(d->ArtNr(0)->hasFocus());
}

void TestShoppingCartAdd::testOpenedAgainItStartsAfresh()
{
    d->TypeAndLeave(d->Category(4), "OR 2");
    d->TypeAndLeave(d->Reference(3), "SA010");
    d->TypeAndLeave(d->Reference(2), "none");
    d->TypeAndLeave(d->ArtNr(5), "QQ 1");
    d->CloseMessage();
    d->TypeAndLeave(d->Amount(1), "0");
    d->CloseMessage();
    QCOMPARE(AddDialog::ColourOf(d->ArtNr(5)), InError);
    QCOMPARE(AddDialog::ColourOf(d->Amount(1)), InError);
    QTest::keyClick(d->Amount(1), Qt::Key_Escape);
    QVERIFY(!d->Dialog().isVisible());

    d->Open();
    testOpensWithTenEmptyRows();
    QCOMPARE(AddDialog::ColourOf(d->Reference(2)), InOrder);
    // No fault of before stands in the way either.
    d->TypeAndLeave(d->ArtNr(0), "AB 10/115");
    d->Click(d->OK());
    QCOMPARE(d->Dialog().Action(), 1);
}

void TestShoppingCartAdd::testOKWithoutArticlesSaysSo()
{
    d->TypeAndLeave(d->Category(0), "OR 2");
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), NoArtNrMessage);
    QCOMPARE(d->MessageCount(), 1);
    d->CloseMessage();
    QVERIFY(d->Dialog().isVisible());
    QVERIFY(d->ArtNr(0)->hasFocus());
    QCOMPARE(d->Category(0)->text(), QStringLiteral("OR 2"));
}

void TestShoppingCartAdd::testFirstFaultyRowIsReported()
{
    for (const int row : {6, 2}) {
        d->TypeAndLeave(d->ArtNr(row), "AB 10/115");
        d->TypeAndLeave(d->Amount(row), "");
    }
    d->Click(d->OK());
    QCOMPARE(d->MessageCount(), 1);
    d->CloseMessage();
    QVERIFY(d->Amount(2)->hasFocus());
    QCOMPARE(AddDialog::ColourOf(d->Amount(6)), InOrder);
}

void TestShoppingCartAdd::testOKConfirms()
{
    d->TypeAndLeave(d->ArtNr(), "AB 10/115");
    d->Click(d->OK());
    QVERIFY(!d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 1);
    QCOMPARE(d->Dialog().property("Action").toInt(), 1);
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAdd::testRowsAreReadAsFilled()
{
    d->TypeAndLeave(d->ArtNr(0), "ab10/115");
    d->TypeAndLeave(d->Amount(0), "12");
    d->TypeAndLeave(d->Category(0), " OR 2: left");
    d->TypeAndLeave(d->Reference(9), "SA011");
    d->Click(d->OK());
    const frmShoppingCartAdd::Entries rows = d->Dialog().Rows();
    QCOMPARE(rows[0].artNrTesk, QStringLiteral("ab 10/115"));
    QCOMPARE(rows[0].artNrCompetition, QString());
    QCOMPARE(rows[0].amount, qint16{12});
    QCOMPARE(rows[0].catNr, QStringLiteral(" OR 2: left"));
    QCOMPARE(rows[4].artNrTesk, QString());
    QCOMPARE(rows[4].amount, qint16{1});
    QCOMPARE(rows[9].artNrTesk, QStringLiteral("AB 10/116"));
    QCOMPARE(rows[9].artNrCompetition, QStringLiteral("SA011"));
}

void TestShoppingCartAdd::testPastedLineEndIsABlank()
{
    d->Click(d->ArtNr());
    d->ArtNr()->insert(QStringLiteral("AB 10/115\r\n"));
    QTest::keyClick(d->ArtNr(), Qt::Key_Tab);
    QCOMPARE(d->ArtNr()->text(), QStringLiteral("AB 10/115"));
    QCOMPARE(d->MessageCount(), 0);
    d->Click(d->Category());
    d->Category()->insert(QStringLiteral("OR\n2"));
    QCOMPARE(d->Dialog().Rows()[0].catNr, QStringLiteral("OR 2"));
}

void TestShoppingCartAdd::testCategoryIsReadAsTyped()
{
    const QString category = QStringLiteral(" 3\" & <b>'new'</b>: OR\\2 ");
    d->Type(d->Category(), qPrintable(category));
    QCOMPARE(d->Dialog().Rows()[0].catNr, category);
}

QTEST_MAIN(TestShoppingCartAdd)
#include "TestShoppingCartAdd.moc"
