#include "cart/dialogs/tests/AddDialog.h"

#include <QShowEvent>

using namespace Tesk;

/// How clicks, keys and the focus meet with the dialog's messages.
class TestShoppingCartAddKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { d = std::make_unique<AddDialog>(); }
    void cleanup() { d.reset(); }

    void testCancelClickAfterAWrongNumberCancels_data();
    void testCancelClickAfterAWrongNumberCancels();
    void testCancelKeyAfterAWrongNumberCancels();
    void testCancelAfterAMessageCancels();
    void testEscapeCancelsWithoutAMessage();
    void testCloseBoxCancelsWithoutAMessage();
    void testCancelledAfterAConfirmedOpening();

    void testOKClickOnAWrongNumberGivesOneMessage();
    void testEnterOnAWrongNumberGivesOneMessage_data();
    void testEnterOnAWrongNumberGivesOneMessage();
    void testEnterConfirms();
    void testEnterOnCancelCancels();

    void testTabOnAWrongNumberGivesOneMessage();
    void testClickElsewhereOnAWrongNumberGivesOneMessage();
    void testFocusStaysWhereItWentAfterAMessage_data();
    void testFocusStaysWhereItWentAfterAMessage();
    void testOtherRowsCanBeFilledBesideAFaultyOne();
    void testOKGoesToTheFieldAtFault();
    void testOKReportsTheFirstRowAtFault();
    void testTwoFaultyFieldsThatLoseTheFocusGiveOneMessage();
    void testTabToAButtonLeavesTheField();
    void testRowsStayAfterAMessage();
    void testRowsStayWhenTheWindowComesBack();
    void testAnotherWindowIsNoLeaving();
    void testPressOnCancelGivesNoMessageBeforeItsRelease();

    void testTabOrder();
    void testMnemonicOfAHeading();

private:
    std::unique_ptr<AddDialog> d;
};

void TestShoppingCartAddKeys::testCancelClickAfterAWrongNumberCancels_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("article number") << QByteArray("tbArtNrTesk") << QByteArray("QQ 1");
    QTest::newRow("amount") << QByteArray("tbAmount") << QByteArray("1000");
}

void TestShoppingCartAddKeys::testCancelClickAfterAWrongNumberCancels()
{
    QFETCH(const QByteArray, field);
    QFETCH(const QByteArray, text);
    d->Type(d->Field(field.constData(), 3), text.constData());
    d->Click(d->CancelButton());
    QVERIFY(!d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 2);
    QCoreApplication::processEvents();
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAddKeys::testCancelKeyAfterAWrongNumberCancels()
{
    d->Type(d->ArtNr(), "QQ 1");
    QTest::keyClick(d->ArtNr(), Qt::Key_C, Qt::AltModifier);
    QTRY_VERIFY(!d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 2);
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAddKeys::testCancelAfterAMessageCancels()
{
    d->TypeAndLeave(d->ArtNr(), "QQ 1");
    d->CloseMessage();
    d->Click(d->CancelButton());
    QVERIFY(!d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 2);
    QCOMPARE(d->MessageCount(), 1);
}

void TestShoppingCartAddKeys::testEscapeCancelsWithoutAMessage()
{
    d->Type(d->ArtNr(), "QQ 1");
    QTest::keyClick(d->ArtNr(), Qt::Key_Escape);
    QVERIFY(!d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 2);
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAddKeys::testCloseBoxCancelsWithoutAMessage()
{
    d->Type(d->Amount(), "0");
    QVERIFY(d->Dialog().close());
    QCOMPARE(d->Dialog().Action(), 2);
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAddKeys::testCancelledAfterAConfirmedOpening()
{
    d->Type(d->ArtNr(), "AB 10/115");
    d->Click(d->OK());
    QCOMPARE(d->Dialog().Action(), 1);
    d->Open();
    QVERIFY(d->Dialog().close());
    QCOMPARE(d->Dialog().Action(), 2);
}

void TestShoppingCartAddKeys::testOKClickOnAWrongNumberGivesOneMessage()
{
    d->Type(d->ArtNr(4), "QQ 1");
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), ArtNrMessage);
    d->CloseMessage();
    QCoreApplication::processEvents();
    QCOMPARE(d->MessageCount(), 1);
    QVERIFY(d->Dialog().isVisible());
    QVERIFY(d->ArtNr(4)->hasFocus());
    QCOMPARE(AddDialog::ColourOf(d->ArtNr(4)), InError);
}

void TestShoppingCartAddKeys::testEnterOnAWrongNumberGivesOneMessage_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("message");
    QTest::newRow("article number, Return")
        << QByteArray("tbArtNrTesk") << QByteArray("QQ 1") << Qt::Key_Return << ArtNrMessage;
    QTest::newRow("article number, Enter")
        << QByteArray("tbArtNrTesk") << QByteArray("QQ 1") << Qt::Key_Enter << ArtNrMessage;
    QTest::newRow("amount") << QByteArray("tbAmount") << QByteArray("abc") << Qt::Key_Return
                            << AmountMessage;
}

void TestShoppingCartAddKeys::testEnterOnAWrongNumberGivesOneMessage()
{
    QFETCH(const QByteArray, field);
    QFETCH(const QByteArray, text);
    QFETCH(const Qt::Key, key);
    QFETCH(const QString, message);
    QLineEdit *const faulty = d->Field(field.constData(), 1);
    d->Type(faulty, text.constData());
    QTest::keyClick(faulty, key);
    QCOMPARE(d->MessageText(), message);
    d->CloseMessage();
    QCoreApplication::processEvents();
    QCOMPARE(d->MessageCount(), 1);
    QVERIFY(d->Dialog().isVisible());
    QVERIFY(faulty->hasFocus());
}

void TestShoppingCartAddKeys::testEnterConfirms()
{
    d->Type(d->ArtNr(), "ab10/115");
    QTest::keyClick(d->ArtNr(), Qt::Key_Return);
    QVERIFY(!d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 1);
    QCOMPARE(d->Dialog().Rows()[0].artNrTesk, QStringLiteral("ab 10/115"));
}

void TestShoppingCartAddKeys::testEnterOnCancelCancels()
{
    d->TypeAndLeave(d->ArtNr(), "AB 10/115");
    d->CancelButton()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(d->CancelButton(), Qt::Key_Return);
    QVERIFY(!d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 2);
}

void TestShoppingCartAddKeys::testTabOnAWrongNumberGivesOneMessage()
{
    d->TypeAndLeave(d->Amount(), "0");
    QCOMPARE(d->MessageText(), AmountMessage);
    d->CloseMessage();
    QCoreApplication::processEvents();
    QCOMPARE(d->MessageCount(), 1);
}

void TestShoppingCartAddKeys::testClickElsewhereOnAWrongNumberGivesOneMessage()
{
    d->Type(d->ArtNr(0), "QQ 1");
    d->Click(d->ArtNr(5));
    QCOMPARE(d->MessageText(), ArtNrMessage);
    d->CloseMessage();
    QCoreApplication::processEvents();
    QCOMPARE(d->MessageCount(), 1);
    QVERIFY(d->ArtNr(5)->hasFocus());
}

void TestShoppingCartAddKeys::testFocusStaysWhereItWentAfterAMessage_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("article number") << QByteArray("tbArtNrTesk") << QByteArray("QQ 1");
    QTest::newRow("amount") << QByteArray("tbAmount") << QByteArray("0");
}

// By Tab to Cancel, which a fault must not bar.
void TestShoppingCartAddKeys::testFocusStaysWhereItWentAfterAMessage()
{
    QFETCH(const QByteArray, field);
    QFETCH(const QByteArray, text);
    QLineEdit *const faulty = d->Field(field.constData(), 9);
    d->TypeAndLeave(faulty, text.constData());
    QCOMPARE(d->MessageCount(), 1);
    d->CloseMessage();
    while (!d->CancelButton()->hasFocus()) {
        QVERIFY(QApplication::focusWidget() != faulty);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(AddDialog::ColourOf(faulty), InError);
    QTest::keyClick(d->CancelButton(), Qt::Key_Space);
    QVERIFY(!d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 2);
    QCOMPARE(d->MessageCount(), 1);
}

void TestShoppingCartAddKeys::testOtherRowsCanBeFilledBesideAFaultyOne()
{
    d->TypeAndLeave(d->ArtNr(1), "QQ 1");
    d->CloseMessage();
    d->TypeAndLeave(d->ArtNr(4), "AB 10/115");
    d->TypeAndLeave(d->Amount(4), "12");
    QCOMPARE(AddDialog::ColourOf(d->ArtNr(1)), InError);
    QCOMPARE(d->MessageCount(), 1);
    // What stands in the way still is told, and can be mended at last.
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), ArtNrMessage);
    d->CloseMessage();
    QVERIFY(d->ArtNr(1)->hasFocus());
    QTest::keyClicks(d->ArtNr(1), QStringLiteral("AB 10/116"));
    d->Click(d->OK());
    QCOMPARE(d->Dialog().Action(), 1);
    QCOMPARE(d->Dialog().Rows()[1].artNrTesk, QStringLiteral("AB 10/116"));
    QCOMPARE(d->Dialog().Rows()[4].amount, qint16{12});
}

void TestShoppingCartAddKeys::testOKGoesToTheFieldAtFault()
{
    d->TypeAndLeave(d->ArtNr(6), "QQ 1");
    d->CloseMessage();
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), ArtNrMessage);
    d->CloseMessage();
    QVERIFY(d->ArtNr(6)->hasFocus());
    QCOMPARE(d->ArtNr(6)->selectedText(), QStringLiteral("QQ 1"));
    // Typing replaces it.
    QTest::keyClicks(d->ArtNr(6), QStringLiteral("AB 10/116"));
    QTest::keyClick(d->ArtNr(6), Qt::Key_Tab);
    QCOMPARE(AddDialog::ColourOf(d->ArtNr(6)), InOrder);
    QCOMPARE(d->MessageCount(), 2);
}

// The field that OK finds the focus in may be at fault as well, further down.
void TestShoppingCartAddKeys::testOKReportsTheFirstRowAtFault()
{
    d->TypeAndLeave(d->Amount(3), "0");
    d->CloseMessage();
    d->TypeAndLeave(d->ArtNr(1), "QQ 1");
    d->CloseMessage();
    d->Type(d->Amount(7), "1000");
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), ArtNrMessage);
    QCOMPARE(d->MessageCount(), 3);
    QCOMPARE(AddDialog::ColourOf(d->Amount(7)), InError);
    d->CloseMessage();
    QVERIFY(d->ArtNr(1)->hasFocus());
    d->TypeAndLeave(d->ArtNr(1), "AB 10/115");
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), AmountMessage);
    d->CloseMessage();
    QVERIFY(d->Amount(3)->hasFocus());
    QCOMPARE(d->MessageCount(), 4);
}

// The message takes the focus from the field that has just got it, which is no leaving, and gives
// it back. The second field is told of when the user leaves it.
void TestShoppingCartAddKeys::testTwoFaultyFieldsThatLoseTheFocusGiveOneMessage()
{
    QStringList left;
    const auto note =
        connect(qApp, &QApplication::focusChanged, &d->Dialog(), [&left](const QWidget *old) {
            if (old && old->objectName().startsWith(QLatin1String("tb")))
                left.append(old->objectName());
        });
    d->Amount()->setText(QStringLiteral("0"));
    d->Type(d->ArtNr(), "QQ 1");
    d->Click(d->Amount());
    QVERIFY(QTest::qWaitForWindowActive(d->Message()));
    QCOMPARE(left, QStringList({QStringLiteral("tbArtNrTesk0"), QStringLiteral("tbAmount0")}));
    QCOMPARE(d->MessageText(), ArtNrMessage);
    QCOMPARE(d->MessageCount(), 1);
    d->CloseMessage();
    QCoreApplication::processEvents();
    disconnect(note);
    QCOMPARE(d->MessageCount(), 1);
    QVERIFY(d->Amount()->hasFocus());
    QTest::keyClick(d->Amount(), Qt::Key_Tab);
    QCOMPARE(d->MessageText(), AmountMessage);
    QCOMPARE(d->MessageCount(), 2);
}

void TestShoppingCartAddKeys::testTabToAButtonLeavesTheField()
{
    d->Type(d->ArtNr(0), "QQ 1");
    QTest::keyClick(d->ArtNr(0), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(d->MessageText(), ArtNrMessage);
    d->CloseMessage();
    QVERIFY(d->OK()->hasFocus());
}

void TestShoppingCartAddKeys::testRowsStayAfterAMessage()
{
    d->TypeAndLeave(d->ArtNr(0), "AB 10/115");
    d->TypeAndLeave(d->Category(0), "OR 2");
    d->TypeAndLeave(d->ArtNr(1), "QQ 1");
    d->CloseMessage();
    QCOMPARE(d->ArtNr(0)->text(), QStringLiteral("AB 10/115"));
    QCOMPARE(d->Category(0)->text(), QStringLiteral("OR 2"));
    QCOMPARE(d->ArtNr(1)->text(), QStringLiteral("QQ 1"));
    QCOMPARE(AddDialog::ColourOf(d->ArtNr(1)), InError);
}

void TestShoppingCartAddKeys::testRowsStayWhenTheWindowComesBack()
{
    d->TypeAndLeave(d->Category(2), "OR 2");
    // What the window system sends when the window was minimised.
    QShowEvent back;
    QSpontaneKeyEvent::setSpontaneous(&back);
    qApp->notify(&d->Dialog(), &back);
    QCOMPARE(d->Category(2)->text(), QStringLiteral("OR 2"));
}

void TestShoppingCartAddKeys::testAnotherWindowIsNoLeaving()
{
    d->Type(d->ArtNr(), "qq1");
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QCOMPARE(d->MessageCount(), 0);
    d->Dialog().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&d->Dialog()));
    QVERIFY(d->ArtNr()->hasFocus());
    QCOMPARE(d->ArtNr()->text(), QStringLiteral("qq1"));
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InOrder);
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAddKeys::testPressOnCancelGivesNoMessageBeforeItsRelease()
{
    d->Type(d->ArtNr(), "QQ 1");
    QTest::mousePress(d->Dialog().windowHandle(), Qt::LeftButton, {},
                      d->CancelButton()->geometry().center());
    QCoreApplication::processEvents();
    QCOMPARE(d->MessageCount(), 0);
    QTest::mouseRelease(d->Dialog().windowHandle(), Qt::LeftButton, {},
                        d->CancelButton()->geometry().center());
    QVERIFY(!d->Dialog().isVisible());
    QCOMPARE(d->Dialog().Action(), 2);
}

void TestShoppingCartAddKeys::testTabOrder()
{
    for (int row = 0; row < 10; ++row) {
        for (const char *name : {"tbArtNrTesk", "tbArtNrCompetition", "tbAmount", "tbCatNr"}) {
            QVERIFY2(d->Field(name, row)->hasFocus(), name);
            QTest::keyClick(d->Field(name, row), Qt::Key_Tab);
        }
    }
    QVERIFY(d->CancelButton()->hasFocus());
    QTest::keyClick(d->CancelButton(), Qt::Key_Tab);
    QVERIFY(d->OK()->hasFocus());
    QTest::keyClick(d->OK(), Qt::Key_Tab);
    QVERIFY(d->ArtNr(0)->hasFocus());
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAddKeys::testMnemonicOfAHeading()
{
    d->Dialog().reject();
    d->LanguageTexts().insert(QStringLiteral("ucShoppingCartManualAmount"),
                              QStringLiteral("A&mount"));
    d->Open();
    QTest::keyClick(d->ArtNr(), Qt::Key_M, Qt::AltModifier);
    QVERIFY(d->Amount(0)->hasFocus());
    QCOMPARE(d->Amount(0)->accessibleName(), QStringLiteral("Amount 1"));
}

QTEST_MAIN(TestShoppingCartAddKeys)
#include "TestShoppingCartAddKeys.moc"
