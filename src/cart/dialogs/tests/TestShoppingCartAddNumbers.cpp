#include "cart/dialogs/tests/AddDialog.h"

using namespace Tesk;

/// The own and the competitors' numbers: what is looked up, coloured and said.
class TestShoppingCartAddNumbers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { d = std::make_unique<AddDialog>(); }
    void cleanup() { d.reset(); }

    void testUnknownNumberTurnsRedOnLeavingAndBarsOK();
    void testKnownNumberIsNormalised_data();
    void testKnownNumberIsNormalised();
    void testClearedNumberIsInOrder();
    void testApostropheInANumberIsUnknown();
    void testNumberOfAnImpossibleIdIsReportedAndBarsOK();

    void testReferenceGivesTheArticleNumber();
    void testReferenceReplacesAnArticleNumber();
    void testReferenceFillsARow();
    void testReferenceIsLookedUpByOKToo();
    void testUnknownReferenceTurnsRedWithoutAMessage();
    void testRowOfAnUnknownReferenceIsNotFilled();
    void testPassingThroughAReferenceKeepsAChangedNumber();

private:
    std::unique_ptr<AddDialog> d;
};

void TestShoppingCartAddNumbers::testUnknownNumberTurnsRedOnLeavingAndBarsOK()
{
    d->TypeAndLeave(d->ArtNr(2), "QQ 1");
    QCOMPARE(AddDialog::ColourOf(d->ArtNr(2)), InError);
    QCOMPARE(d->MessageText(), ArtNrMessage);
    d->CloseMessage();
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), ArtNrMessage);
    QCOMPARE(d->MessageCount(), 2);
    d->CloseMessage();
    QVERIFY(d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 2);
    QCOMPARE(AddDialog::ColourOf(d->ArtNr(2)), InError);
}

void TestShoppingCartAddNumbers::testKnownNumberIsNormalised_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("normalised");
    QTest::newRow("as it is") << QStringLiteral("AB 10/115") << QStringLiteral("AB 10/115");
    QTest::newRow("without blank") << QStringLiteral("AB10/115") << QStringLiteral("AB 10/115");
    QTest::newRow("small letters") << QStringLiteral("ab10/115") << QStringLiteral("ab 10/115");
    QTest::newRow("blanks around") << QStringLiteral("  AB10/115 ") << QStringLiteral("AB 10/115");
    QTest::newRow("digits only") << QStringLiteral("21-100-14") << QStringLiteral("21-100-14");
}

void TestShoppingCartAddNumbers::testKnownNumberIsNormalised()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, normalised);
    d->TypeAndLeave(d->ArtNr(), qPrintable(typed));
    QCOMPARE(d->ArtNr()->text(), normalised);
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InOrder);
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAddNumbers::testClearedNumberIsInOrder()
{
    d->TypeAndLeave(d->ArtNr(), "QQ 1");
    d->CloseMessage();
    d->TypeAndLeave(d->ArtNr(), " ");
    QCOMPARE(d->ArtNr()->text(), QString());
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InOrder);
    QCOMPARE(d->MessageCount(), 1);
}

void TestShoppingCartAddNumbers::testApostropheInANumberIsUnknown()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".")));
    d->TypeAndLeave(d->ArtNr(), "AB '1");
    QCOMPARE(d->MessageText(), ArtNrMessage);
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InError);
}

void TestShoppingCartAddNumbers::testNumberOfAnImpossibleIdIsReportedAndBarsOK()
{
    d->LanguageTexts().insert(QStringLiteral("errorNumberRange"), QStringLiteral("{0} zu groß"));
    d->TypeAndLeave(d->ArtNr(), "ZZ 9");
    QCOMPARE(d->MessageText(), QStringLiteral("40000 zu groß"));
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InError);
    d->CloseMessage();
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), QStringLiteral("40000 zu groß"));
    QCOMPARE(d->MessageCount(), 2);
    QVERIFY(d->Dialog().isVisible());
}

void TestShoppingCartAddNumbers::testReferenceGivesTheArticleNumber()
{
    d->TypeAndLeave(d->Reference(7), "SA011");
    QCOMPARE(d->ArtNr(7)->text(), QStringLiteral("AB 10/116"));
    QCOMPARE(d->ArtNr(6)->text(), QString());
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAddNumbers::testReferenceReplacesAnArticleNumber()
{
    d->TypeAndLeave(d->ArtNr(), "AB 10/115");
    d->TypeAndLeave(d->Reference(), " SA011 ");
    QCOMPARE(d->ArtNr()->text(), QStringLiteral("AB 10/116"));
    d->TypeAndLeave(d->Reference(), "SA0");
    QCOMPARE(d->ArtNr()->text(), QString());
}

void TestShoppingCartAddNumbers::testReferenceFillsARow()
{
    d->TypeAndLeave(d->Reference(9), "SA010");
    d->Click(d->OK());
    QCOMPARE(d->MessageCount(), 0);
    QCOMPARE(d->Dialog().Action(), 1);
}

void TestShoppingCartAddNumbers::testReferenceIsLookedUpByOKToo()
{
    d->Type(d->Reference(), "SA010");
    d->Click(d->OK());
    QCOMPARE(d->Dialog().Action(), 1);
    QCOMPARE(d->Dialog().Rows()[0].artNrTesk, QStringLiteral("AB 10/115"));
}

void TestShoppingCartAddNumbers::testUnknownReferenceTurnsRedWithoutAMessage()
{
    d->TypeAndLeave(d->Reference(), "SA0");
    QCOMPARE(AddDialog::ColourOf(d->Reference()), InError);
    QCOMPARE(d->MessageCount(), 0);
    d->TypeAndLeave(d->Reference(), "SA010");
    QCOMPARE(AddDialog::ColourOf(d->Reference()), InOrder);
    d->TypeAndLeave(d->Reference(), "SA0");
    d->TypeAndLeave(d->Reference(), "");
    QCOMPARE(AddDialog::ColourOf(d->Reference()), InOrder);
}

void TestShoppingCartAddNumbers::testRowOfAnUnknownReferenceIsNotFilled()
{
    d->TypeAndLeave(d->Reference(), "SA0");
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), NoArtNrMessage);
    QVERIFY(d->Dialog().isVisible());
}

void TestShoppingCartAddNumbers::testPassingThroughAReferenceKeepsAChangedNumber()
{
    d->TypeAndLeave(d->Reference(), "SA010");
    d->TypeAndLeave(d->ArtNr(), "AB 10/116");
    QVERIFY(d->Reference()->hasFocus());
    QTest::keyClick(d->Reference(), Qt::Key_Tab);
    QCOMPARE(d->ArtNr()->text(), QStringLiteral("AB 10/116"));
    // A number that was taken out comes back.
    d->TypeAndLeave(d->ArtNr(), "");
    QTest::keyClick(d->Reference(), Qt::Key_Tab);
    QCOMPARE(d->ArtNr()->text(), QStringLiteral("AB 10/115"));
}

QTEST_MAIN(TestShoppingCartAddNumbers)
#include "TestShoppingCartAddNumbers.moc"
