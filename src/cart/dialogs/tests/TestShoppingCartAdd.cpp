#include "cart/dialogs/tests/AddDialog.h"

#include <QAccessible>
#include <QLabel>

using namespace Tesk;

namespace {

const Texts German =
    MakeTexts({"Artikel hinzufügen", "Artikelnummer Tesk", "Nummer des Wettbewerbers", "Menge",
               "Ihre Kategorie", "oder", "OK", "&Abbrechen",
               "Diese Artikelnummer gibt es im Katalog nicht. Bitte prüfen Sie Ihre Eingabe.",
               "Bitte geben Sie eine Menge von 1 bis 999 ein.",
               "Bitte geben Sie mindestens eine Artikelnummer ein."});
const Texts French =
    MakeTexts({"Ajouter des articles", "Numéro d’article Tesk", "Numéro du concurrent", "Quantité",
               "Votre catégorie", "ou", "OK", "&Annuler", "x", "y", "z"});
const Texts Spanish =
    MakeTexts({"Añadir artículos", "Número de artículo Tesk", "Número del competidor", "Cantidad",
               "Su categoría", "o", "Aceptar", "&Cancelar", "x", "y", "z"});
const Texts Italian =
    MakeTexts({"Aggiungi articoli", "Numero articolo Tesk", "Numero del concorrente", "Quantità",
               "La Sua categoria", "o", "OK", "&Annulla", "x", "y", "z"});

} // namespace

/// What the dialog looks up, colours, says and gives back.
class TestShoppingCartAdd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { d = std::make_unique<AddDialog>(); }
    void cleanup() { d.reset(); }

    void testOpensWithTenEmptyRows();
    void testOpenedAgainItStartsAfresh();
    void testCaptionsAreThoseOfTheLanguageAtEachOpening();

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
    void testPastedLineEndIsABlank();
    void testQuotationMarksOfACategoryAreRoundedOff();

    void testAmountInOrder_data();
    void testAmountInOrder();
    void testAmountInError_data();
    void testAmountInError();
    void testMendedAmountTurnsWhiteAgain();
    void testEmptiedAmountTurnsWhiteOnLeaving();
    void testArticleWithoutAmountBarsOK();
    void testAmountErrorOfAnEmptyRowBarsOK();

    void testOKWithoutArticlesSaysSo();
    void testFirstFaultyRowIsReported();
    void testOKConfirms();
    void testRowsAreReadAsFilled();

    void testFieldsStandInLine();
    void testFieldsAreNamedForScreenReaders();
    void testTextIsBlackInTheDarkScheme();
    void testNothingIsCut_data();
    void testNothingIsCut();

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
    d->TypeAndLeave(d->Amount(1), "0");
    d->CloseMessage();
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

void TestShoppingCartAdd::testCaptionsAreThoseOfTheLanguageAtEachOpening()
{
    const auto label = [this](const char *name) {
        return d->Find<QLabel>(QLatin1String(name))->text();
    };
    QCOMPARE(d->Dialog().windowTitle(), QStringLiteral("Add articles"));
    d->Dialog().reject();
    d->LanguageTexts() = German;
    d->Open();
    QCOMPARE(d->Dialog().windowTitle(), QStringLiteral("Artikel hinzufügen"));
    QCOMPARE(label("lblDesc1"), QStringLiteral("Artikelnummer Tesk"));
    QCOMPARE(label("lblDesc2"), QStringLiteral("Nummer des Wettbewerbers"));
    QCOMPARE(label("lblDesc3"), QStringLiteral("Menge"));
    QCOMPARE(label("lblDesc4"), QStringLiteral("Ihre Kategorie"));
    QCOMPARE(label("lblOr0"), QStringLiteral("oder"));
    QCOMPARE(label("lblOr9"), QStringLiteral("oder"));
    QCOMPARE(d->OK()->text(), QStringLiteral("OK"));
    QCOMPARE(d->CancelButton()->text(), QStringLiteral("&Abbrechen"));
}

void TestShoppingCartAdd::testUnknownNumberTurnsRedOnLeavingAndBarsOK()
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

void TestShoppingCartAdd::testKnownNumberIsNormalised_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("normalised");
    QTest::newRow("as it is") << QStringLiteral("AB 10/115") << QStringLiteral("AB 10/115");
    QTest::newRow("without blank") << QStringLiteral("AB10/115") << QStringLiteral("AB 10/115");
    QTest::newRow("small letters") << QStringLiteral("ab10/115") << QStringLiteral("ab 10/115");
    QTest::newRow("blanks around") << QStringLiteral("  AB10/115 ") << QStringLiteral("AB 10/115");
    QTest::newRow("digits only") << QStringLiteral("21-100-14") << QStringLiteral("21-100-14");
}

void TestShoppingCartAdd::testKnownNumberIsNormalised()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, normalised);
    d->TypeAndLeave(d->ArtNr(), qPrintable(typed));
    QCOMPARE(d->ArtNr()->text(), normalised);
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InOrder);
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAdd::testClearedNumberIsInOrder()
{
    d->TypeAndLeave(d->ArtNr(), "QQ 1");
    d->CloseMessage();
    d->TypeAndLeave(d->ArtNr(), " ");
    QCOMPARE(d->ArtNr()->text(), QString());
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InOrder);
    QCOMPARE(d->MessageCount(), 1);
}

void TestShoppingCartAdd::testApostropheInANumberIsUnknown()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".")));
    d->TypeAndLeave(d->ArtNr(), "AB '1");
    QCOMPARE(d->MessageText(), ArtNrMessage);
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InError);
}

void TestShoppingCartAdd::testNumberOfAnImpossibleIdIsReportedAndBarsOK()
{
    d->TypeAndLeave(d->ArtNr(), "ZZ 9");
    QVERIFY(d->MessageText().contains(QStringLiteral("40000")));
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InError);
    d->CloseMessage();
    d->Click(d->OK());
    QCOMPARE(d->MessageCount(), 2);
    QVERIFY(d->Dialog().isVisible());
}

void TestShoppingCartAdd::testReferenceGivesTheArticleNumber()
{
    d->TypeAndLeave(d->Reference(7), "SA011");
    QCOMPARE(d->ArtNr(7)->text(), QStringLiteral("AB 10/116"));
    QCOMPARE(d->ArtNr(6)->text(), QString());
    QCOMPARE(d->MessageCount(), 0);
}

void TestShoppingCartAdd::testReferenceReplacesAnArticleNumber()
{
    d->TypeAndLeave(d->ArtNr(), "AB 10/115");
    d->TypeAndLeave(d->Reference(), " SA011 ");
    QCOMPARE(d->ArtNr()->text(), QStringLiteral("AB 10/116"));
    d->TypeAndLeave(d->Reference(), "SA0");
    QCOMPARE(d->ArtNr()->text(), QString());
}

void TestShoppingCartAdd::testReferenceFillsARow()
{
    d->TypeAndLeave(d->Reference(9), "SA010");
    d->Click(d->OK());
    QCOMPARE(d->MessageCount(), 0);
    QCOMPARE(d->Dialog().Action(), 1);
}

void TestShoppingCartAdd::testReferenceIsLookedUpByOKToo()
{
    d->Type(d->Reference(), "SA010");
    d->Click(d->OK());
    QCOMPARE(d->Dialog().Action(), 1);
    QCOMPARE(d->Dialog().Rows()[0].artNrTesk, QStringLiteral("AB 10/115"));
}

void TestShoppingCartAdd::testUnknownReferenceTurnsRedWithoutAMessage()
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

void TestShoppingCartAdd::testRowOfAnUnknownReferenceIsNotFilled()
{
    d->TypeAndLeave(d->Reference(), "SA0");
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), NoArtNrMessage);
    QVERIFY(d->Dialog().isVisible());
}

void TestShoppingCartAdd::testPassingThroughAReferenceKeepsAChangedNumber()
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

void TestShoppingCartAdd::testQuotationMarksOfACategoryAreRoundedOff()
{
    d->Type(d->Category(), "\"new\" OR");
    QCOMPARE(d->Dialog().Rows()[0].catNr, QStringLiteral("”new” OR"));
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

void TestShoppingCartAdd::testAmountInOrder_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("amount");
    QTest::newRow("one") << QStringLiteral("1") << 1;
    QTest::newRow("largest") << QStringLiteral("999") << 999;
    QTest::newRow("point") << QStringLiteral("1.5") << 2;
    QTest::newRow("comma") << QStringLiteral("2,5") << 2;
    QTest::newRow("blanks around") << QStringLiteral(" 7 ") << 7;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("blank") << QStringLiteral(" ") << 0;
}

void TestShoppingCartAdd::testAmountInOrder()
{
    QFETCH(const QString, text);
    QFETCH(const int, amount);
    d->TypeAndLeave(d->Amount(5), qPrintable(text));
    QCOMPARE(AddDialog::ColourOf(d->Amount(5)), InOrder);
    QCOMPARE(d->MessageCount(), 0);
    QCOMPARE(int(d->Dialog().Rows()[5].amount), amount);
}

void TestShoppingCartAdd::testAmountInError_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << QStringLiteral("0");
    QTest::newRow("thousand") << QStringLiteral("1000");
    QTest::newRow("just below one") << QStringLiteral("0.99");
    QTest::newRow("just above the largest") << QStringLiteral("999,5");
    QTest::newRow("negative") << QStringLiteral("-5");
    QTest::newRow("word") << QStringLiteral("two");
    QTest::newRow("number and word") << QStringLiteral("2x");
    QTest::newRow("too large for any number") << QString(400, QLatin1Char('9'));
}

void TestShoppingCartAdd::testAmountInError()
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

void TestShoppingCartAdd::testMendedAmountTurnsWhiteAgain()
{
    d->TypeAndLeave(d->ArtNr(), "AB 10/115");
    d->TypeAndLeave(d->Amount(), "1000");
    d->CloseMessage();
    QTest::keyClick(d->Amount(), Qt::Key_0);
    QCOMPARE(AddDialog::ColourOf(d->Amount()), InError);
    QTest::keyClick(d->Amount(), Qt::Key_Backspace);
    QTest::keyClick(d->Amount(), Qt::Key_5);
    QCOMPARE(AddDialog::ColourOf(d->Amount()), InOrder);
    d->Click(d->OK());
    QCOMPARE(d->Dialog().Action(), 1);
    QCOMPARE(d->MessageCount(), 1);
}

void TestShoppingCartAdd::testEmptiedAmountTurnsWhiteOnLeaving()
{
    d->TypeAndLeave(d->Amount(), "1000");
    d->CloseMessage();
    d->TypeAndLeave(d->Amount(), "");
    QCOMPARE(AddDialog::ColourOf(d->Amount()), InOrder);
    QCOMPARE(d->MessageCount(), 1);
}

void TestShoppingCartAdd::testArticleWithoutAmountBarsOK()
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

void TestShoppingCartAdd::testAmountErrorOfAnEmptyRowBarsOK()
{
    d->TypeAndLeave(d->ArtNr(0), "AB 10/115");
    d->TypeAndLeave(d->Amount(3), "0");
    d->CloseMessage();
    d->Click(d->OK());
    QCOMPARE(d->MessageText(), AmountMessage);
    QVERIFY(d->Dialog().isVisible());
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

void TestShoppingCartAdd::testFieldsStandInLine()
{
    for (const char *name : {"tbArtNrTesk", "tbArtNrCompetition", "tbAmount", "tbCatNr"}) {
        for (int row = 1; row < 10; ++row) {
            QCOMPARE(d->Field(name, row)->x(), d->Field(name, 0)->x());
            QCOMPARE(d->Field(name, row)->width(), d->Field(name, 0)->width());
            QCOMPARE(d->Field(name, row)->y(), d->ArtNr(row)->y());
            QCOMPARE(d->ArtNr(row)->y() - d->ArtNr(row - 1)->y(),
                     d->ArtNr(1)->y() - d->ArtNr(0)->y());
        }
    }
    QCOMPARE(d->Reference()->width(), d->ArtNr()->width());
    QCOMPARE(d->Category()->width(), d->ArtNr()->width());
    QVERIFY(d->OK()->x() > d->CancelButton()->x());
}

void TestShoppingCartAdd::testFieldsAreNamedForScreenReaders()
{
    const auto nameOf = [](QWidget *widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    QCOMPARE(nameOf(d->ArtNr(0)), QStringLiteral("Tesk article number 1"));
    QCOMPARE(nameOf(d->Reference(2)), QStringLiteral("Competitor's number 3"));
    QCOMPARE(nameOf(d->Amount(9)), QStringLiteral("Amount 10"));
}

void TestShoppingCartAdd::testTextIsBlackInTheDarkScheme()
{
    d->Dialog().setPalette(QPalette(QColor(35, 38, 41)));
    for (const char *text : {"AB 10/115", "QQ 1"}) {
        d->TypeAndLeave(d->ArtNr(), text);
        QCOMPARE(d->ArtNr()->palette().color(QPalette::Text), QColor(Qt::black));
    }
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InError);
    QCOMPARE(AddDialog::ColourOf(d->ArtNr(1)), InOrder);
}

void TestShoppingCartAdd::testNothingIsCut_data()
{
    QTest::addColumn<QHash<QString, QString>>("languageTexts");
    QTest::addColumn<double>("scale");
    const std::vector<std::pair<const char *, Texts>> languages = {{"German", German},
                                                                   {"English", English},
                                                                   {"French", French},
                                                                   {"Spanish", Spanish},
                                                                   {"Italian", Italian}};
    for (const auto &[name, languageTexts] : languages) {
        for (const double scale : {1.0, 2.0})
            QTest::addRow("%s, %d %%", name, int(scale * 100)) << languageTexts << scale;
    }
}

void TestShoppingCartAdd::testNothingIsCut()
{
    QFETCH(const Texts, languageTexts);
    QFETCH(const double, scale);
    d->Dialog().reject();
    d->LanguageTexts() = languageTexts;
    QFont font = d->Dialog().font();
    font.setPointSizeF(font.pointSizeF() * scale);
    d->Dialog().setFont(font);
    d->Open();
    const auto controls = d->Dialog().findChildren<QWidget *>(
        QRegularExpression(QStringLiteral("^(lbl|tb|btn)")), Qt::FindDirectChildrenOnly);
    QCOMPARE(controls.size(), 4 + 10 * 5 + 2);
    for (const QWidget *const control : controls) {
        QVERIFY2(d->Dialog().rect().contains(control->geometry()),
                 qPrintable(control->objectName()));
        QVERIFY2(control->height() >= control->minimumSizeHint().height(),
                 qPrintable(control->objectName()));
        const int needed =
            qobject_cast<const QLineEdit *>(control)
                ? control->fontMetrics().horizontalAdvance(QStringLiteral("AB 10/115"))
                : control->sizeHint().width();
        if (!control->objectName().startsWith(QLatin1String("tbAmount")))
            QVERIFY2(control->width() >= needed, qPrintable(control->objectName()));
    }
}

QTEST_MAIN(TestShoppingCartAdd)
#include "TestShoppingCartAdd.moc"
