#include "ContactFixture.h"

#include <QClipboard>
#include <QComboBox>
#include <QRadioButton>

using namespace Tesk;

namespace {

const QColor White(255, 255, 255);
const QColor LightRed(255, 200, 200);
constexpr std::array MandatoryFields{"InstName", "Street", "PostalCodeCity",
                                     "Country",  "Phone",  "PersonName"};

QColor Background(const QLineEdit *field)
{
    return field->palette().color(QPalette::Base);
}

} // namespace

/// What is kept, what is checked, and how the dialogs close.
class TestContactDialogs : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<ContactFixture> fixture;

private Q_SLOTS:
    void init() { fixture = std::make_unique<ContactFixture>(); }

    void testAllMandatoryFieldsAreCheckedAtOnce_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("send") << QStringLiteral("SendButton");
        QTest::newRow("print") << QStringLiteral("PrintButton");
    }

    void testAllMandatoryFieldsAreCheckedAtOnce()
    {
        QFETCH(const QString, button);
        fixture->Open<dlgContact>();
        fixture->Type("Country", QStringLiteral("Land X"));
        fixture->Type("Phone", QStringLiteral("   "));
        fixture->Click(qPrintable(button));
        QVERIFY(fixture->dialog->isVisible());
        for (const char *const name : MandatoryFields) {
            const bool isFilled = qstrcmp(name, "Country") == 0;
            QCOMPARE(Background(fixture->Line(name)), isFilled ? White : LightRed);
        }
        for (const char *const name : {"CustomerId", "Fax", "Mobile", "Email", "Url"})
            QVERIFY(Background(fixture->Line(name)) != LightRed);
        QVERIFY(fixture->mails.isEmpty());
        // The colours are the whole report.
        QCOMPARE(QApplication::activeModalWidget(), fixture->dialog.get());
    }

    void testFaultyFieldIsSeenInItsColourWithReadableText()
    {
        QPalette dark;
        dark.setColor(QPalette::Base, Qt::black);
        dark.setColor(QPalette::Text, Qt::white);
        fixture->Open<dlgContactOrder>();
        fixture->dialog->setPalette(dark);
        fixture->Type("Street", QStringLiteral("Ring 1"));
        fixture->Click("SendButton");
        const QImage picture = fixture->Line("Phone")->grab().toImage();
        QCOMPARE(picture.pixelColor(picture.rect().center()), LightRed);
        QCOMPARE(fixture->Line("Street")->palette().color(QPalette::Text), QColor(Qt::black));
    }

    void testMendedFieldTurnsWhiteAtOnce()
    {
        fixture->Open<dlgContactOrder>();
        fixture->Click("SendButton");
        fixture->Type("Street", QStringLiteral("  "));
        QCOMPARE(Background(fixture->Line("Street")), LightRed);
        QTest::keyClick(fixture->Line("Street"), Qt::Key_R);
        QCOMPARE(Background(fixture->Line("Street")), White);
        QCOMPARE(Background(fixture->Line("Phone")), LightRed);
        QApplication::clipboard()->setText(QStringLiteral("0123"));
        fixture->Line("Phone")->paste();
        QCOMPARE(Background(fixture->Line("Phone")), White);

        // Only the next check says again what is missing.
        fixture->Type("Street", QString());
        QCOMPARE(Background(fixture->Line("Street")), White);
        fixture->Click("SendButton");
        QCOMPARE(Background(fixture->Line("Street")), LightRed);
        QCOMPARE(Background(fixture->Line("Phone")), White);
    }

    void testFieldThatWasNotCheckedKeepsTheDesktopsColour()
    {
        QPalette dark;
        dark.setColor(QPalette::Base, Qt::black);
        fixture->Open<dlgContactOrder>();
        fixture->dialog->setPalette(dark);
        fixture->Type("Street", QStringLiteral("Ring 1"));
        QCOMPARE(Background(fixture->Line("Street")), QColor(Qt::black));
    }

    void testFirstFaultyFieldGetsTheFocus()
    {
        fixture->OpenFilledOrder();
        fixture->Type("Country", QString());
        fixture->Type("PersonName", QStringLiteral(" "));
        fixture->Click("SendButton");
        QVERIFY(fixture->Line("Country")->hasFocus());
    }

    void testValuesAreStoredBeforeTheyAreChecked()
    {
        fixture->Open<dlgContact>();
        fixture->Type("InstName", QStringLiteral("Klinik"));
        fixture->Type("CustomerId", QStringLiteral("77"));
        fixture->Type("Url", QStringLiteral("www.x.example"));
        QTest::keyClick(fixture->Find<QComboBox>("InstType"), Qt::Key_End);
        QTest::mouseClick(fixture->Find<QRadioButton>("Title1"), Qt::LeftButton, {}, {4, 8});
        fixture->Click("SendButton");
        QVERIFY(fixture->dialog->isVisible());
        QCOMPARE(fixture->Stored("CustomerInstType"), QStringLiteral("3"));
        QCOMPARE(fixture->Stored("CustomerInstName"), QStringLiteral("Klinik"));
        QCOMPARE(fixture->Stored("CustomerId"), QStringLiteral("77"));
        QCOMPARE(fixture->Stored("Url"), QStringLiteral("www.x.example"));
        QCOMPARE(fixture->Stored("Title"), QStringLiteral("1"));
    }

    void testDataOutlivesAMailThatNobodyTook()
    {
        fixture->isMailable = false;
        fixture->Open<dlgContact>();
        fixture->TypeMandatoryFields();
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("No program opened mailto:")));
        fixture->Click("SendButton");
        QVERIFY(!fixture->dialog->isVisible());
        fixture->Open<dlgContact>();
        QCOMPARE(fixture->Line("InstName")->text(), QStringLiteral("Klinik"));
        QCOMPARE(fixture->Line("PersonName")->text(), QStringLiteral("Muster"));
    }

    void testEachFieldIsStoredUnderItsName()
    {
        fixture->Open<dlgContact>();
        for (auto *const field : fixture->dialog->findChildren<QLineEdit *>())
            ContactFixture::Type(field, field->objectName().toLower());
        fixture->Click("PrintButton");
        const QList<std::pair<const char *, QString>> expected = {
            {"CustomerInstType", QStringLiteral("0")},
            {"CustomerInstName", QStringLiteral("instname")},
            {"CustomerId", QStringLiteral("customerid")},
            {"Street", QStringLiteral("street")},
            {"PostalCodeCity", QStringLiteral("postalcodecity")},
            {"Country", QStringLiteral("country")},
            {"Phone", QStringLiteral("phone")},
            {"Fax", QStringLiteral("fax")},
            {"Mobile", QStringLiteral("mobile")},
            {"Email", QStringLiteral("email")},
            {"Url", QStringLiteral("url")},
            {"Title", QStringLiteral("0")},
            {"Name", QStringLiteral("personname")}};
        for (const auto &[name, text] : expected)
            QCOMPARE(fixture->Stored(name), text);
    }

    void testDialogLeavesTheValuesThatItDoesNotShow()
    {
        fixture->Keep("CustomerId", QStringLiteral("77"));
        fixture->Keep("Url", QStringLiteral("www.x.example"));
        fixture->Open<dlgContactRequest>();
        fixture->Click("PrintButton");
        QCOMPARE(fixture->Stored("CustomerId"), QStringLiteral("77"));
        fixture->Open<dlgContactOrder>();
        fixture->Click("PrintButton");
        QCOMPARE(fixture->Stored("Url"), QStringLiteral("www.x.example"));
    }

    void testOrderNumberAndNotesAreNotKept()
    {
        fixture->OpenFilledOrder();
        fixture->Type("PON", QStringLiteral("PO 1"));
        QTest::keyClicks(fixture->Find<QPlainTextEdit>("ContactNotes"), QStringLiteral("notes"));
        fixture->Click("PrintButton");
        fixture->Show();
        QCOMPARE(fixture->Line("PON")->text(), QString());
        QCOMPARE(fixture->Find<QPlainTextEdit>("ContactNotes")->toPlainText(), QString());
        QCOMPARE(fixture->Line("Street")->text(), QStringLiteral("Ring 1"));
    }

    void testStoredValuesAreShown()
    {
        fixture->Keep("CustomerInstType", QStringLiteral("2"));
        fixture->Keep("CustomerInstName", QStringLiteral("Klinik"));
        fixture->Keep("Name", QStringLiteral("Muster"));
        fixture->Keep("Title", QStringLiteral("1"));
        fixture->Open<dlgContactOrder>();
        QCOMPARE(fixture->Find<QComboBox>("InstType")->currentIndex(), 2);
        QCOMPARE(fixture->Line("InstName")->text(), QStringLiteral("Klinik"));
        QCOMPARE(fixture->Line("PersonName")->text(), QStringLiteral("Muster"));
        QVERIFY(fixture->Find<QRadioButton>("Title1")->isChecked());
        QCOMPARE(fixture->Line("Street")->text(), QString());
    }

    void testUnknownTitleIsTheFirst_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::newRow("absent") << QString();
        QTest::newRow("zero") << QStringLiteral("0");
        QTest::newRow("two") << QStringLiteral("2");
        QTest::newRow("word") << QStringLiteral("Frau");
    }

    void testUnknownTitleIsTheFirst()
    {
        QFETCH(const QString, stored);
        fixture->Keep("Title", stored);
        fixture->Open<dlgContact>();
        QVERIFY(fixture->Find<QRadioButton>("Title0")->isChecked());
        QVERIFY(!fixture->Find<QRadioButton>("Title1")->isChecked());
    }

    void testUnknownTypeOfInstitutionIsTheFirst_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::newRow("absent") << QString();
        QTest::newRow("word") << QStringLiteral("Klinik");
        QTest::newRow("below") << QStringLiteral("-1");
        QTest::newRow("above") << QStringLiteral("4");
        QTest::newRow("far above") << QStringLiteral("99999999999");
    }

    void testUnknownTypeOfInstitutionIsTheFirst()
    {
        QFETCH(const QString, stored);
        fixture->Keep("CustomerInstType", stored);
        fixture->Open<dlgContactOrder>();
        QCOMPARE(fixture->Find<QComboBox>("InstType")->currentIndex(), 0);
    }

    void testCancelKeepsTheStoredValuesAsTheyWere_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("button") << 0;
        QTest::newRow("Escape") << 1;
        QTest::newRow("Escape in the notes") << 2;
        QTest::newRow("window frame") << 3;
    }

    void testCancelKeepsTheStoredValuesAsTheyWere()
    {
        QFETCH(const int, way);
        fixture->Keep("Street", QStringLiteral("Ring 1"));
        fixture->OpenFilledOrder();
        fixture->Type("Street", QStringLiteral("Allee 2"));
        if (way == 0)
            fixture->Click("CancelButton");
        else if (way == 1)
            QTest::keyClick(fixture->Line("Street"), Qt::Key_Escape);
        else if (way == 2)
            QTest::keyClick(fixture->Find<QPlainTextEdit>("ContactNotes"), Qt::Key_Escape);
        else
            fixture->dialog->close();
        QVERIFY(!fixture->dialog->isVisible());
        QCOMPARE(fixture->dialog->Action(), 2);
        QCOMPARE(fixture->dialog->property("Action").toInt(), 2);
        QCOMPARE(fixture->Stored("Street"), QStringLiteral("Ring 1"));
        QCOMPARE(fixture->Stored("Phone"), QString());
        QVERIFY(fixture->mails.isEmpty());
    }

    void testCancelAfterAFaultyAttemptIsACancel()
    {
        fixture->Open<dlgContactOrder>();
        fixture->Click("PrintButton");
        QVERIFY(fixture->dialog->isVisible());
        QTest::keyClick(fixture->Line("Street"), Qt::Key_Escape);
        QCOMPARE(fixture->dialog->Action(), 2);
    }

    void testEnterInALineSends()
    {
        fixture->OpenFilledOrder();
        QTest::keyClick(fixture->Line("PersonName"), Qt::Key_Return);
        QVERIFY(!fixture->dialog->isVisible());
        QCOMPARE(fixture->dialog->Action(), 0);
        QCOMPARE(fixture->mails.size(), 1);
    }

    void testEnterOnAButtonPressesThatButton()
    {
        fixture->OpenFilledOrder();
        fixture->Find<QPushButton>("PrintButton")->setFocus();
        QTest::keyClick(fixture->Find<QPushButton>("PrintButton"), Qt::Key_Return);
        QCOMPARE(fixture->dialog->Action(), 1);
        QVERIFY(fixture->mails.isEmpty());
    }

    void testOpeningAgainStartsAfresh()
    {
        fixture->Open<dlgContactOrder>();
        fixture->Click("SendButton");
        QCOMPARE(Background(fixture->Line("Street")), LightRed);
        fixture->Type("PON", QStringLiteral("PO 1"));
        fixture->Click("CancelButton");
        fixture->getText = [](const QString &key) { return QLatin1String("it ") + key; };
        fixture->Show();
        QVERIFY(Background(fixture->Line("Street")) != LightRed);
        QCOMPARE(fixture->Line("PON")->text(), QString());
        QCOMPARE(fixture->dialog->windowTitle(), QStringLiteral("it ucContactCaption_Order"));
        QCOMPARE(fixture->Find<QComboBox>("InstType")->count(), 4);
        QVERIFY(fixture->Find<QComboBox>("InstType")->hasFocus());
    }

    void testComingBackFromAnotherWindowKeepsTheText()
    {
        fixture->Open<dlgContactOrder>();
        fixture->Type("Street", QStringLiteral("Ring 1"));
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        fixture->dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(fixture->dialog.get()));
        QCOMPARE(fixture->Line("Street")->text(), QStringLiteral("Ring 1"));
    }

    void testWheelOverTheListOfInstitutionsDoesNotChoose()
    {
        fixture->Keep("CustomerInstType", QStringLiteral("1"));
        fixture->Open<dlgContactOrder>();
        fixture->Line("Street")->setFocus();
        auto *const list = fixture->Find<QComboBox>("InstType");
        QCOMPARE(list->focusPolicy(), Qt::StrongFocus);
        const QPointF place = list->rect().center();
        QWheelEvent event(place, list->mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(list, &event);
        QCOMPARE(list->currentIndex(), 1);
        QVERIFY(fixture->Line("Street")->hasFocus());
    }
};

QTEST_MAIN(TestContactDialogs)
#include "TestContactDialogs.moc"
