#include "ContactFixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QRadioButton>

using namespace Tesk;

namespace {

QString Lines(const QStringList &lines)
{
    return lines.join(QLatin1String("\r\n")) + QLatin1String("\r\n");
}

const QString TypeLine = QStringLiteral("Art der Institution: ucContactInstType_0");

const QString CheckedInfo = QStringLiteral(
    "Ich benötige: ucContactCaption_RequestedInfo_0,ucContactCaption_RequestedInfo_3,"
    "ucContactCaption_RequestedInfo_12");
const QString CheckedWay = QStringLiteral("Ich bitte um: ucContactCaption_ContactOver_2");

/// In the order of a message; each dialog has most of them.
const QStringList LinesOfAllFields{QStringLiteral("Art der Institution: ucContactInstType_1"),
                                   QStringLiteral("Name der Institution: instname"),
                                   QStringLiteral("Kundennummer: customerid"),
                                   QStringLiteral("Strasse: street"),
                                   QStringLiteral("PLZ / Stadt: postalcodecity"),
                                   QStringLiteral("Land: country"),
                                   QStringLiteral("Telefon: phone"),
                                   QStringLiteral("Fax: fax"),
                                   QStringLiteral("Mobil: mobile"),
                                   QStringLiteral("Email: email"),
                                   QStringLiteral("Web: url"),
                                   QStringLiteral("ucContactTitle_1 personname"),
                                   CheckedInfo,
                                   CheckedWay,
                                   QStringLiteral("Nummer der Bestellung: pon"),
                                   QStringLiteral("Bemerkungen: notes")};

} // namespace

/// What is composed, sent and left for the order form.
class TestContactMessages : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<ContactFixture> fixture;

    void TypeAll() const
    {
        for (auto *const field : fixture->dialog->findChildren<QLineEdit *>())
            ContactFixture::Type(field, field->objectName().toLower());
        QTest::keyClick(fixture->Find<QComboBox>("InstType"), Qt::Key_Down);
        QTest::keyClicks(fixture->Find<QPlainTextEdit>("ContactNotes"), QStringLiteral("notes"));
    }

    QString PrintedBody() const
    {
        fixture->Click("PrintButton");
        return fixture->last.body;
    }

private Q_SLOTS:
    void init() { fixture = std::make_unique<ContactFixture>(); }

    void testOrderWithoutOptionalFieldsHasTheSevenLines()
    {
        fixture->OpenFilledOrder();
        QCOMPARE(PrintedBody(),
                 Lines({TypeLine, QStringLiteral("Name der Institution: Klinik"),
                        QStringLiteral("Strasse: Ring 1"), QStringLiteral("PLZ / Stadt: 12345 Ort"),
                        QStringLiteral("Land: Land X"), QStringLiteral("Telefon: 0123"),
                        QStringLiteral("ucContactTitle_0 Muster")}));
        QCOMPARE(fixture->last.subject, QStringLiteral("Bestellung"));
    }

    void testFullMessage_data()
    {
        QTest::addColumn<ContactKind>("kind");
        QTest::addColumn<QString>("subject");
        QTest::addColumn<QStringList>("absent");
        const QString customerId = QStringLiteral("Kundennummer: customerid");
        const QString url = QStringLiteral("Web: url");
        const QString orderNumber = QStringLiteral("Nummer der Bestellung: pon");
        QTest::newRow("contact") << ContactKind::Contact << QStringLiteral("Kontakt")
                                 << QStringList{orderNumber};
        QTest::newRow("request") << ContactKind::Request << QStringLiteral("Anfrage")
                                 << QStringList{customerId, orderNumber, CheckedInfo, CheckedWay};
        QTest::newRow("order") << ContactKind::Order << QStringLiteral("Bestellung")
                               << QStringList{url, CheckedInfo, CheckedWay};
    }

    void testFullMessage()
    {
        QFETCH(const ContactKind, kind);
        QFETCH(const QString, subject);
        QFETCH(const QStringList, absent);
        fixture->Open(kind);
        TypeAll();
        if (kind == ContactKind::Contact) {
            for (const char *const box :
                 {"RequestInfoItems12", "RequestInfoItems0", "RequestInfoItems3", "ContactOver2"})
                QTest::mouseClick(fixture->Find<QCheckBox>(box), Qt::LeftButton, {}, {4, 8});
        }
        QTest::mouseClick(fixture->Find<QRadioButton>("Title1"), Qt::LeftButton, {}, {4, 8});
        QStringList lines = LinesOfAllFields;
        for (const QString &line : absent)
            QCOMPARE(lines.removeAll(line), 1);
        QCOMPARE(PrintedBody(), Lines(lines));
        QCOMPARE(fixture->last.subject, subject);
    }

    void testContactWithoutCheckedBoxesHasTwoEmptyLines()
    {
        fixture->Open<dlgContact>();
        fixture->TypeMandatoryFields();
        QVERIFY(PrintedBody().endsWith(QLatin1String("ucContactTitle_0 Muster\r\n\r\n\r\n")));
    }

    void testBlankOptionalFieldsHaveNoLine()
    {
        fixture->OpenFilledOrder();
        for (const char *const name : {"CustomerId", "Fax", "Mobile", "Email", "PON"})
            fixture->Type(name, QStringLiteral("   "));
        QTest::keyClicks(fixture->Find<QPlainTextEdit>("ContactNotes"), QStringLiteral("  "));
        QCOMPARE(PrintedBody().count(QLatin1String("\r\n")), 7);
    }

    void testTextsAreWrittenUntrimmed()
    {
        fixture->OpenFilledOrder();
        fixture->Type("Fax", QStringLiteral(" 5 "));
        fixture->Type("Street", QStringLiteral("  Ring 2 "));
        const QString body = PrintedBody();
        QVERIFY(body.contains(QLatin1String("\r\nFax:  5 \r\n")));
        QVERIFY(body.contains(QLatin1String("\r\nStrasse:   Ring 2 \r\n")));
    }

    void testLinesOfTheNotesEndWithCrLf()
    {
        fixture->OpenFilledOrder();
        auto *const notes = fixture->Find<QPlainTextEdit>("ContactNotes");
        QTest::keyClicks(notes, QStringLiteral("one"));
        QTest::keyClick(notes, Qt::Key_Return);
        QTest::keyClick(notes, Qt::Key_Enter);
        QTest::keyClicks(notes, QStringLiteral("two"));
        QVERIFY(fixture->dialog->isVisible());
        QVERIFY(PrintedBody().endsWith(QLatin1String("Bemerkungen: one\r\n\r\ntwo\r\n")));
    }

    void testPastedCrLfInTheNotesIsOneLineEnd()
    {
        fixture->OpenFilledOrder();
        QApplication::clipboard()->setText(QStringLiteral("one\r\ntwo"));
        fixture->Find<QPlainTextEdit>("ContactNotes")->paste();
        QVERIFY(PrintedBody().endsWith(QLatin1String("Bemerkungen: one\r\ntwo\r\n")));
    }

    void testPastedLineEndsInALineAreBlanks()
    {
        fixture->OpenFilledOrder();
        fixture->Type("Street", QString());
        QApplication::clipboard()->setText(QStringLiteral("a;&%\r\nb\tc\nd"));
        fixture->Line("Street")->paste();
        QVERIFY(PrintedBody().contains(QLatin1String("\r\nStrasse: a;&% b c d\r\n")));
        QCOMPARE(fixture->Stored("Street"), QStringLiteral("a;&% b c d"));
    }

    void testSendHandsTheMessageToTheMailProgram()
    {
        fixture->OpenFilledOrder();
        fixture->Type("InstName", QStringLiteral("Praxis Müller & Söhne"));
        fixture->Click("SendButton");
        QCOMPARE(fixture->dialog->Action(), 0);
        QVERIFY(!fixture->dialog->isVisible());
        QCOMPARE(fixture->mails.size(), 1);
#ifndef Q_OS_WIN
        QCOMPARE(fixture->mails[0],
                 QByteArray("mailto:info@tesk-instruments.example?subject=Bestellung&body="
                            "Art%20der%20Institution%3A%20ucContactInstType%5F0%0D%0A"
                            "Name%20der%20Institution%3A%20Praxis%20M%C3%BCller%20%26%20"
                            "S%C3%B6hne%0D%0A"
                            "Strasse%3A%20Ring%201%0D%0A"
                            "PLZ%20%2F%20Stadt%3A%2012345%20Ort%0D%0A"
                            "Land%3A%20Land%20X%0D%0A"
                            "Telefon%3A%200123%0D%0A"
                            "ucContactTitle%5F0%20Muster%0D%0A"));
#endif
        QCOMPARE(fixture->last.subject, QStringLiteral("Bestellung"));
        QVERIFY(fixture->last.body.contains(QStringLiteral("Praxis Müller & Söhne")));
    }

    void testPrintStoresComposesAndOpensNoMailProgram()
    {
        fixture->Open<dlgContactRequest>();
        fixture->TypeMandatoryFields();
        fixture->Click("PrintButton");
        QCOMPARE(fixture->dialog->Action(), 1);
        QVERIFY(!fixture->dialog->isVisible());
        QVERIFY(fixture->mails.isEmpty());
        QCOMPARE(fixture->Stored("CustomerInstName"), QStringLiteral("Klinik"));
        QVERIFY(fixture->last.body.startsWith(TypeLine));
    }

    void testRefusedMailStillClosesAndKeepsTheMessage()
    {
        fixture->isMailable = false;
        fixture->OpenFilledOrder();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("No program opened")));
        fixture->Click("SendButton");
        QVERIFY(!fixture->dialog->isVisible());
        QCOMPARE(fixture->dialog->Action(), 0);
        QCOMPARE(fixture->last.subject, QStringLiteral("Bestellung"));
    }

    void testCancelledAndFaultyDialogsLeaveTheLastMessage()
    {
        fixture->Open<dlgContactOrder>();
        fixture->Click("SendButton");
        QVERIFY(fixture->dialog->isVisible());
        QVERIFY(fixture->mails.isEmpty());
        QCOMPARE(fixture->last.body, QStringLiteral("before"));
        fixture->TypeMandatoryFields();
        fixture->Click("CancelButton");
        QVERIFY(!fixture->dialog->isVisible());
        QCOMPARE(fixture->last.subject, QStringLiteral("before"));
        QCOMPARE(fixture->last.body, QStringLiteral("before"));
    }

    void testCharactersOutsideTheCodePageStayInTheOrderForm()
    {
        fixture->OpenFilledOrder();
        fixture->Type("InstName", QStringLiteral("клиника"));
        fixture->Click("SendButton");
        QVERIFY(fixture->last.body.contains(QStringLiteral("Name der Institution: клиника\r\n")));
        QVERIFY(fixture->mails.value(0).contains("Institution%3A%20%3F%3F%3F%3F%3F%3F%3F%0D%0A"));
        QCOMPARE(fixture->Stored("CustomerInstName"), QStringLiteral("клиника"));
    }

    void testTenThousandCharactersArriveWhole()
    {
        const QString longText = QStringLiteral("0123456789").repeated(1000);
        fixture->OpenFilledOrder();
        QApplication::clipboard()->setText(longText);
        fixture->Type("Street", QString());
        fixture->Line("Street")->paste();
        fixture->Find<QPlainTextEdit>("ContactNotes")->paste();
        fixture->Click("SendButton");
        QVERIFY(fixture->last.body.contains(QLatin1String("\r\nStrasse: ") + longText +
                                            QLatin1String("\r\n")));
        QVERIFY(fixture->last.body.endsWith(QLatin1String("Bemerkungen: ") + longText +
                                            QLatin1String("\r\n")));
        QVERIFY(fixture->mails.value(0).endsWith(longText.toLatin1() + "%0D%0A"));
        QCOMPARE(fixture->Stored("Street"), longText);
    }

    void testSubjectsAndLabelsAreGermanInEveryLanguage()
    {
        fixture->getText = [](const QString &) { return QStringLiteral("x"); };
        fixture->Open<dlgContact>();
        fixture->TypeMandatoryFields();
        QVERIFY(PrintedBody().startsWith(
            QLatin1String("Art der Institution: x\r\nName der Institution: Klinik\r\n")));
        QCOMPARE(fixture->last.subject, QStringLiteral("Kontakt"));
    }
};

QTEST_MAIN(TestContactMessages)
#include "TestContactMessages.moc"
