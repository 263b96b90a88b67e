#include "ContactFixture.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>

using namespace Tesk;

namespace {

/// The sample's texts of a language, whose sources are UTF-8.
QHash<QString, QString> TextsOf(const QString &code)
{
    QHash<QString, QString> texts;
    QFile file(QStringLiteral(LANGUAGES_DIR "/loc_%1.txt").arg(code));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return texts;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString &line : lines)
        texts.insert(line.section(u'=', 0, 0), line.section(u'=', 1));
    return texts;
}

} // namespace

/// What the dialogs show, in which order, and that nothing of it is cut.
class TestContactLayout : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<ContactFixture> fixture;

    QString LabelText(const char *name) const
    {
        const auto *const label = fixture->Find<QLabel>(name);
        return label ? label->text() : QString();
    }

    QRect PlaceOf(const QWidget *control) const
    {
        return {control->mapTo(fixture->dialog.get(), QPoint(0, 0)), control->size()};
    }

private Q_SLOTS:
    void init() { fixture = std::make_unique<ContactFixture>(); }

    void testEachDialogShowsItsFields_data()
    {
        QTest::addColumn<ContactKind>("dialog");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<int>("boxes");
        QTest::addColumn<bool>("hint");
        QTest::newRow("contact")
            << ContactKind::Contact << QStringLiteral("ucContactCaption_Contact")
            << QStringLiteral("InstName CustomerId Street PostalCodeCity Country Phone Fax Mobile "
                              "Email Url PersonName")
                   .split(u' ')
            << 16 << false;
        QTest::newRow("request")
            << ContactKind::Request << QStringLiteral("ucContactCaption_Request")
            << QStringLiteral("InstName Street PostalCodeCity Country Phone Fax Mobile Email Url "
                              "PersonName")
                   .split(u' ')
            << 0 << true;
        QTest::newRow("order")
            << ContactKind::Order << QStringLiteral("ucContactCaption_Order")
            << QStringLiteral("InstName CustomerId Street PostalCodeCity Country Phone Fax Mobile "
                              "Email PersonName PON")
                   .split(u' ')
            << 0 << true;
    }

    void testEachDialogShowsItsFields()
    {
        QFETCH(const ContactKind, dialog);
        QFETCH(const QString, caption);
        QFETCH(const QStringList, fields);
        QFETCH(const int, boxes);
        QFETCH(const bool, hint);
        fixture->Open(dialog);
        QCOMPARE(fixture->dialog->windowTitle(), caption);
        QStringList found;
        for (const auto *const field : fixture->dialog->findChildren<QLineEdit *>()) {
            QVERIFY(field->isVisible());
            found += field->objectName();
        }
        QCOMPARE(found, fields);
        QCOMPARE(fixture->dialog->findChildren<QCheckBox *>().size(), boxes);
        QCOMPARE(fixture->Find<QLabel>("Hint") != nullptr, hint);
        QCOMPARE(
            fixture->dialog->findChildren<QLabel *>(QStringLiteral("MandatoryFieldMarker")).size(),
            6);
        QCOMPARE(fixture->Find<QComboBox>("InstType")->count(), 4);
    }

    void testCaptionsAreThoseOfTheirKeys()
    {
        fixture->Open<dlgContact>();
        const QList<std::pair<const char *, const char *>> labels = {
            {"InstTypeLabel", "ucContactInstType"},
            {"InstNameLabel", "ucContactInstName"},
            {"CustomerIdLabel", "ucContactCustomerId"},
            {"StreetLabel", "ucContactStreet"},
            {"PostalCodeCityLabel", "ucContactPostalCodeCity"},
            {"CountryLabel", "ucContactCountry"},
            {"PhoneLabel", "ucContactPhone"},
            {"FaxLabel", "ucContactFax"},
            {"MobileLabel", "ucContactMobile"},
            {"EmailLabel", "ucContactEmail"},
            {"UrlLabel", "ucContactUrl"},
            {"PersonNameLabel", "ucContactPersonName"},
            {"HintRecommended", "ucContactHintRecommended"}};
        for (const auto &[name, key] : labels)
            QCOMPARE(LabelText(name), QLatin1String(key));
        const auto *const types = fixture->Find<QComboBox>("InstType");
        for (int i = 0; i < 4; ++i)
            QCOMPARE(types->itemText(i), QStringLiteral("ucContactInstType_%1").arg(i));
        QCOMPARE(fixture->Find<QRadioButton>("Title0")->text(), QStringLiteral("ucContactTitle_0"));
        QCOMPARE(fixture->Find<QRadioButton>("Title1")->text(), QStringLiteral("ucContactTitle_1"));
        QCOMPARE(fixture->Find<QGroupBox>("Contact")->title(),
                 QStringLiteral("ucContactCaption_Notes"));
        QCOMPARE(fixture->Find<QPushButton>("PrintButton")->text(), QStringLiteral("btn_print"));
        QCOMPARE(fixture->Find<QPushButton>("SendButton")->text(), QStringLiteral("btn_send"));
        QCOMPARE(fixture->Find<QPushButton>("CancelButton")->text(), QStringLiteral("btn_cancel"));
    }

    void testCheckBoxesStandInTheirCaptionedFrames()
    {
        fixture->Open<dlgContact>();
        for (int i = 0; i < 13; ++i) {
            const auto *const box = fixture->dialog->findChild<QCheckBox *>(
                QStringLiteral("RequestInfoItems%1").arg(i));
            QVERIFY(box);
            QCOMPARE(box->text(), QStringLiteral("ucContactCaption_RequestedInfo_%1").arg(i));
            QCOMPARE(qobject_cast<QGroupBox *>(box->parentWidget())->title(),
                     QStringLiteral("ucContactCaption_RequestedInfo"));
        }
        for (int i = 0; i < 3; ++i) {
            const auto *const box =
                fixture->dialog->findChild<QCheckBox *>(QStringLiteral("ContactOver%1").arg(i));
            QVERIFY(box);
            QCOMPARE(box->text(), QStringLiteral("ucContactCaption_ContactOver_%1").arg(i));
            QCOMPARE(qobject_cast<QGroupBox *>(box->parentWidget())->title(),
                     QStringLiteral("ucContactCaption_ContactOver"));
        }
    }

    void testOrderNumberHasItsLabel()
    {
        fixture->Open<dlgContactOrder>();
        QCOMPARE(LabelText("PONLabel"), QStringLiteral("ucContactCaption_PON"));
    }

    void testHintsBreakTheirLines()
    {
        fixture->getText = [](const QString &key) { return key + QLatin1String("{nl}b{nl}c"); };
        fixture->Open<dlgContactRequest>();
        QCOMPARE(LabelText("Hint"), QStringLiteral("ucContactHint\r\nb\r\nc"));
        QCOMPARE(LabelText("HintRecommended"),
                 QStringLiteral("ucContactHintRecommended\r\nb\r\nc"));
    }

    void testMarkersStandBesideTheMandatoryFields()
    {
        fixture->Open<dlgContact>();
        QStringList marked;
        for (const auto *const field : fixture->dialog->findChildren<QLineEdit *>()) {
            for (const auto *const marker :
                 fixture->dialog->findChildren<QLabel *>(QStringLiteral("MandatoryFieldMarker"))) {
                const int middle = PlaceOf(marker).center().y();
                if (middle > PlaceOf(field).top() && middle < PlaceOf(field).bottom())
                    marked += field->objectName();
            }
        }
        QCOMPARE(
            marked,
            QStringLiteral("InstName Street PostalCodeCity Country Phone PersonName").split(u' '));
    }

    void testTabLeadsThroughTheFieldsToTheButtons_data()
    {
        QTest::addColumn<ContactKind>("dialog");
        QTest::addColumn<QStringList>("order");
        const QStringList end =
            QStringLiteral("ContactNotes CancelButton PrintButton SendButton").split(u' ');
        QTest::newRow("order")
            << ContactKind::Order
            << QStringLiteral("InstType InstName CustomerId Street PostalCodeCity Country Phone "
                              "Fax Mobile Email Title0 PersonName PON")
                       .split(u' ') +
                   end;
        QTest::newRow("request")
            << ContactKind::Request
            << QStringLiteral("InstType InstName Street PostalCodeCity Country Phone Fax Mobile "
                              "Email Url Title0 PersonName")
                       .split(u' ') +
                   end;
        QStringList boxes;
        for (int i = 0; i < 13; ++i)
            boxes += QStringLiteral("RequestInfoItems%1").arg(i);
        for (int i = 0; i < 3; ++i)
            boxes += QStringLiteral("ContactOver%1").arg(i);
        QTest::newRow("contact")
            << ContactKind::Contact
            << QStringLiteral("InstType InstName CustomerId Street PostalCodeCity Country Phone "
                              "Fax Mobile Email Url Title0 PersonName")
                       .split(u' ') +
                   boxes + end;
    }

    void testTabLeadsThroughTheFieldsToTheButtons()
    {
        QFETCH(const ContactKind, dialog);
        QFETCH(const QStringList, order);
        fixture->Open(dialog);
        QStringList visited;
        for (qsizetype i = 0; i < order.size(); ++i) {
            visited += QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(visited, order);
        QCOMPARE(QApplication::focusWidget()->objectName(), order.front());
    }

    void testMnemonicsLeadToTheirControls()
    {
        fixture->getText = [](const QString &key) {
            return key == QLatin1String("ucContactStreet") ? QStringLiteral("&Road") : key;
        };
        fixture->Open<dlgContactOrder>();
        QTest::keyClick(fixture->dialog.get(), Qt::Key_R, Qt::AltModifier);
        QVERIFY(fixture->Line("Street")->hasFocus());
    }

    void testMnemonicsOfTheButtonsPressThem()
    {
        fixture->getText = [](const QString &key) {
            return key == QLatin1String("btn_print") ? QStringLiteral("&Print") : key;
        };
        fixture->OpenFilledOrder();
        QTest::keyClick(fixture->Line("Street"), Qt::Key_P, Qt::AltModifier);
        QTRY_VERIFY(!fixture->dialog->isVisible());
        QCOMPARE(fixture->dialog->Action(), 1);
    }

    void testFieldsAreNamedForScreenReaders()
    {
        fixture->Open<dlgContactOrder>();
        const auto nameOf = [](QWidget *widget) {
            return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
        };
        QCOMPARE(nameOf(fixture->Line("Street")), QStringLiteral("ucContactStreet"));
        // A list's name is the entry that it shows; what it is for stands in its label.
        const auto labels =
            QAccessible::queryAccessibleInterface(fixture->Find<QComboBox>("InstType"))
                ->relations(QAccessible::Label);
        QCOMPARE(labels.size(), 1);
        QCOMPARE(labels[0].first->text(QAccessible::Name), QStringLiteral("ucContactInstType"));
        QCOMPARE(nameOf(fixture->Find<QPlainTextEdit>("ContactNotes")),
                 QStringLiteral("ucContactCaption_Notes"));
    }

    void testNothingIsCut_data()
    {
        QTest::addColumn<ContactKind>("dialog");
        QTest::addColumn<QString>("code");
        QTest::addColumn<bool>("isSmall");
        const QList<std::pair<ContactKind, const char *>> dialogs{{ContactKind::Contact, "contact"},
                                                                  {ContactKind::Request, "request"},
                                                                  {ContactKind::Order, "order"}};
        for (const auto &[dialog, name] : dialogs) {
            for (const char *const code : {"ge", "en", "fr", "sp", "it"}) {
                for (const bool isSmall : {false, true})
                    QTest::addRow("%s, %s, %s", name, code, isSmall ? "800 x 560" : "as it opens")
                        << dialog << QString::fromLatin1(code) << isSmall;
            }
        }
    }

    void testNothingIsCut()
    {
        QFETCH(const ContactKind, dialog);
        QFETCH(const QString, code);
        QFETCH(const bool, isSmall);
        const QHash<QString, QString> texts = TextsOf(code);
        QVERIFY(texts.contains(QStringLiteral("ucContactStreet")));
        fixture->getText = [&texts](const QString &key) { return texts.value(key); };
        fixture->Open(dialog);
        if (isSmall)
            fixture->dialog->resize(800, 560);
        QCoreApplication::processEvents();

        const QList<QWidget *> controls = fixture->dialog->findChildren<QWidget *>();
        for (const QWidget *const control : controls) {
            const bool isText = qobject_cast<const QLabel *>(control) ||
                                qobject_cast<const QAbstractButton *>(control);
            if (!isText || !control->isVisible() || control->objectName().startsWith(u"qt_"))
                continue;
            const bool isWrapped = control->hasHeightForWidth();
            const QByteArray name = control->objectName().toUtf8();
            if (!isWrapped)
                QVERIFY2(control->width() >= control->sizeHint().width(), name.constData());
            const int height = isWrapped ? control->heightForWidth(control->width())
                                         : control->sizeHint().height();
            QVERIFY2(control->height() >= height, name.constData());
        }
        const auto *const area = fixture->dialog->findChild<QScrollArea *>();
        QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
    }

    void testSmallWindowScrollsToTheFocusAndKeepsItsButtons()
    {
        fixture->Open<dlgContact>();
        fixture->dialog->resize(500, 240);
        QCoreApplication::processEvents();
        const auto *const area = fixture->dialog->findChild<QScrollArea *>();
        QVERIFY(area->verticalScrollBar()->maximum() > 0);
        const auto isSeen = [area](const QWidget *control) {
            const QPoint place = control->mapTo(area->viewport(), control->rect().center());
            return area->viewport()->rect().contains(place);
        };
        for (int i = 0; i < 30; ++i) {
            QWidget *const current = QApplication::focusWidget();
            QTest::keyClick(current, Qt::Key_Tab);
            QWidget *const next = QApplication::focusWidget();
            if (area->isAncestorOf(next))
                QVERIFY2(isSeen(next), qPrintable(next->objectName()));
        }
        for (const char *const button : {"CancelButton", "PrintButton", "SendButton"})
            QVERIFY(fixture->dialog->rect().contains(PlaceOf(fixture->Find<QPushButton>(button))));

        fixture->Type("PersonName", QStringLiteral("x"));
        QTest::keyClick(fixture->Line("PersonName"), Qt::Key_Return);
        QVERIFY(fixture->Line("InstName")->hasFocus());
        QVERIFY(isSeen(fixture->Line("InstName")));
    }

    void testOpensWithinTheScreen()
    {
        fixture->getText = [](const QString &key) {
            return key.startsWith(QLatin1String("btn_")) ? key : key.repeated(8);
        };
        fixture->Open<dlgContact>();
        const QSize room = fixture->dialog->screen()->availableGeometry().size();
        QVERIFY(fixture->dialog->width() <= room.width());
        QVERIFY(fixture->dialog->height() <= room.height());
    }
};

QTEST_MAIN(TestContactLayout)
#include "TestContactLayout.moc"
