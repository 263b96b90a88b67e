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

/// What the dialog shows in each language, and that nothing of it is cut.
class TestShoppingCartAddLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { d = std::make_unique<AddDialog>(); }
    void cleanup() { d.reset(); }

    void testCaptionsAreThoseOfTheLanguageAtEachOpening();

    void testFieldsStandInLine();
    void testFieldsAreNamedForScreenReaders();
    void testTextIsBlackInTheDarkScheme();
    void testNothingIsCut_data();
    void testNothingIsCut();

private:
    std::unique_ptr<AddDialog> d;
};

void TestShoppingCartAddLayout::testCaptionsAreThoseOfTheLanguageAtEachOpening()
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

void TestShoppingCartAddLayout::testFieldsStandInLine()
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

void TestShoppingCartAddLayout::testFieldsAreNamedForScreenReaders()
{
    const auto nameOf = [](QWidget *widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    QCOMPARE(nameOf(d->ArtNr(0)), QStringLiteral("Tesk article number 1"));
    QCOMPARE(nameOf(d->Reference(2)), QStringLiteral("Competitor's number 3"));
    QCOMPARE(nameOf(d->Amount(9)), QStringLiteral("Amount 10"));
}

void TestShoppingCartAddLayout::testTextIsBlackInTheDarkScheme()
{
    d->Dialog().setPalette(QPalette(QColor(35, 38, 41)));
    for (const char *text : {"AB 10/115", "QQ 1"}) {
        d->TypeAndLeave(d->ArtNr(), text);
        QCOMPARE(d->ArtNr()->palette().color(QPalette::Text), QColor(Qt::black));
    }
    QCOMPARE(AddDialog::ColourOf(d->ArtNr()), InError);
    QCOMPARE(AddDialog::ColourOf(d->ArtNr(1)), InOrder);
}

void TestShoppingCartAddLayout::testNothingIsCut_data()
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

void TestShoppingCartAddLayout::testNothingIsCut()
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

QTEST_MAIN(TestShoppingCartAddLayout)
#include "TestShoppingCartAddLayout.moc"
