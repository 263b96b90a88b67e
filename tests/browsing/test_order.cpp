#include "cart/dialogs/frmShoppingCartAmount.h"
#include "contact/dlgContactOrder.h"
#include "contact/dlgContactRequest.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineTest.h"
#include "support/Mail.h"
#include "support/PdfFiles.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QComboBox>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

namespace {

const QString ScissorsId = QStringLiteral("2");
const QString SetId = QStringLiteral("482");

/// Opens the list with the product, and puts it into the cart by its link there.
bool AddFromList(CatalogueWindow &catalogue, const QString &productId, const QString &amount)
{
    const CategoryNode *const leaf = FindLeaf(catalogue, [&](const ResultTable &rows) {
        for (int row = 1; row <= rows.UpperRow(); ++row) {
            if (rows.Text(row, 0) == productId)
                return true;
        }
        return false;
    });
    if (leaf == nullptr || !WaitForFillAfter(catalogue, [&] { ClickInTree(catalogue, leaf); }))
        return false;
    return CatalogueWindow::AnswerDialogs(
        [&] {
            catalogue.Click(QStringLiteral("a[href='javascript:setStatusbar(%1)']").arg(productId));
        },
        {[&](QWidget *dialog) {
             Fill(dialog, "tbAmount", amount);
             ClickButton(dialog, "OKButton");
         },
         PressButton(QMessageBox::Ok)});
}

void FillMandatoryFields(QWidget *dialog)
{
    Fill(dialog, "InstName", QStringLiteral("Klinik Überlingen"));
    Fill(dialog, "Street", QStringLiteral("Hauptstraße 5"));
    Fill(dialog, "PostalCodeCity", QStringLiteral("88662 Überlingen"));
    Fill(dialog, "Country", QStringLiteral("Österreich"));
    Fill(dialog, "Phone", QStringLiteral("+49 7551/1234"));
    Fill(dialog, "PersonName", QStringLiteral("Jörg & Änne Müller"));
}

QString Line(const QString &artNr, const QString &title, const QString &rest)
{
    return artNr + u'|' + title + u'|' + rest;
}

const QString ScissorsName = QStringLiteral("Chirurgische Schere, gerade, spitz/stumpf");

} // namespace

/// The way from a list to the order: collected, edited, sent and printed.
class TestOrder final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testFromTheListToTheOrder()
    {
        CatalogueWindow catalogue(SampleCatalogue, QStringLiteral("German"));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(AddFromList(catalogue, ScissorsId, QStringLiteral("3")));
        QVERIFY(AddFromList(catalogue, SetId, QStringLiteral("1")));

        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        const auto members = [](const QString &thirdAmount) {
            return QStringList{Line(QStringLiteral("AB 40/145"),
                                    QStringLiteral("Anatomische Pinzette, gerade"),
                                    QStringLiteral("1")),
                               Line(QStringLiteral("AB 42/145"),
                                    QStringLiteral("Chirurgische Pinzette, gerade, 1x2 Zähne"),
                                    QStringLiteral("1")),
                               Line(QStringLiteral("AB 10/146"), ScissorsName, thirdAmount),
                               Line(QStringLiteral("AB 81/130"),
                                    QStringLiteral("Knopfsonde, biegsam"), QStringLiteral("1")),
                               Line(QStringLiteral("AB 57/145"),
                                    QStringLiteral("Verbandschere nach Lister, abgewinkelt"),
                                    QStringLiteral("1"))};
        };
        const QString set =
            Line(QStringLiteral("TS 90/100"), QStringLiteral("Verbandset"), QStringLiteral("1"));
        QVERIFY(cart.WaitForLines(
            QStringList{Line(QStringLiteral("AB 10/116"), ScissorsName, QStringLiteral("3")), set} +
            members(QStringLiteral("1"))));

        // The members of a list that comes from the database are counted from 1.
        QVERIFY(cart.Page().TypeInto(QStringLiteral("#fld_1_3"), QStringLiteral("4")));
        cart.Page().PressKey(Qt::Key_Tab);
        QVERIFY(cart.Page().TypeInto(QStringLiteral("#cat_0"), QStringLiteral("OP 2:für Müller")));
        QVERIFY(cart.Page().TypeInto(QStringLiteral("#fld_0"), QStringLiteral("12")));

        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { cart.Press("btnSendOrder"); }, {[&](QWidget *dialog) {
                QVERIFY(qobject_cast<dlgContactOrder *>(dialog) != nullptr);
                ClickButton(dialog, "SendButton");
                QVERIFY2(dialog->isVisible(), "the mandatory fields are empty");
                QCOMPARE(catalogue.MailAddresses().size(), 0);
                FillMandatoryFields(dialog);
                ChooseEntry(dialog->findChild<QComboBox *>(QStringLiteral("InstType")), 2);
                Fill(dialog, "CustomerId", QStringLiteral("K-4711"));
                Fill(dialog, "Mobile", QStringLiteral("   "));
                Fill(dialog, "Email", QStringLiteral("einkauf@klinik.example"));
                Fill(dialog, "PON", QStringLiteral("50% aus 2024=A+B?"));
                Fill(dialog, "ContactNotes", QStringLiteral("Bitte schnell.\nGrüße"));
                ClickButton(dialog, "Title1");
                ClickButton(dialog, "SendButton");
            }}));

        QCOMPARE(catalogue.MailAddresses().size(), 1);
        const Mail mail = Mail::Of(catalogue.MailAddresses().constFirst());
        QCOMPARE(mail.recipient, QStringLiteral("info@tesk-instruments.example"));
        QCOMPARE(mail.subject, QStringLiteral("Bestellung"));
        const QStringList body{QStringLiteral("Art der Institution: Fachhandel"),
                               QStringLiteral("Name der Institution: Klinik Überlingen"),
                               QStringLiteral("Kundennummer: K-4711"),
                               QStringLiteral("Strasse: Hauptstraße 5"),
                               QStringLiteral("PLZ / Stadt: 88662 Überlingen"),
                               QStringLiteral("Land: Österreich"),
                               QStringLiteral("Telefon: +49 7551/1234"),
                               QStringLiteral("Email: einkauf@klinik.example"),
                               QStringLiteral("Frau Jörg & Änne Müller"),
                               QStringLiteral("Nummer der Bestellung: 50% aus 2024=A+B?"),
                               QStringLiteral("Bemerkungen: Bitte schnell."),
                               QStringLiteral("Grüße")};
        QCOMPARE(mail.Lines(), body);

        const QStringList ordered = QStringList{Line(QStringLiteral("AB 10/116"), ScissorsName,
                                                     QStringLiteral("OP 2:für Müller|12")),
                                                set} +
                                    members(QStringLiteral("4"));
        QVERIFY(cart.WaitForOrderForm(ordered));
        const auto text = [&](const char *element) {
            return cart.Page()
                .Evaluate(QStringLiteral("document.getElementById('%1').innerText")
                              .arg(QLatin1String(element)))
                .toString()
                .trimmed();
        };
        QCOMPARE(text("caption"), QStringLiteral("Bestellung"));
        QCOMPARE(text("summary").split(u'\n'), body);
        QCOMPARE(cart.Page().Evaluate(QStringLiteral("document.querySelectorAll('input').length")),
                 QVariant(0));

        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("order.pdf"));
        QVERIFY(CatalogueWindow::AnswerDialogs([&] { cart.Press("btnPrint"); }, {PrintInto(file)}));
        QVERIFY(WaitUntil([&] { return QFile::exists(file); }));
        const QString paper = TextOfPdf(file);
        for (const QString &line : body)
            QVERIFY2(paper.contains(line), qPrintable(line + QLatin1String(" in ") + paper));
        for (const QString &line : ordered) {
            const QStringList cells = line.split(u'|');
            QString pattern;
            for (const QString &cell : cells)
                pattern += QRegularExpression::escape(cell) + QStringLiteral("\\s+");
            QVERIFY2(paper.contains(QRegularExpression(pattern)),
                     qPrintable(line + QLatin1String(" in ") + paper));
        }
        QVERIFY(paper.contains(QStringLiteral("Warenkorb")));
        QCOMPARE(catalogue.MailAddresses().size(), 1);
    }

    void testPrintedRequestSendsNothing()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(AddFromList(catalogue, ScissorsId, QStringLiteral("5")));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("request.pdf"));
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { cart.Press("btnSendRequest"); },
            {[&](QWidget *dialog) {
                 QVERIFY(qobject_cast<dlgContactRequest *>(dialog) != nullptr);
                 FillMandatoryFields(dialog);
                 Fill(dialog, "Url", QStringLiteral("https://klinik.example"));
                 ClickButton(dialog, "PrintButton");
             },
             PrintInto(file)}));
        QVERIFY(WaitUntil([&] { return QFile::exists(file); }));
        const QString paper = TextOfPdf(file);
        for (const char *text : {"Anfrage", "Web: https://klinik.example", "Klinik Überlingen",
                                 "AB 10/116", "Operating scissors, straight, sharp/blunt"})
            QVERIFY2(paper.contains(QString::fromUtf8(text)), text);
        QCOMPARE(catalogue.MailAddresses().size(), 0);
        // Printing leaves the order form as it is shown, and the customer's data kept.
        QVERIFY(cart.WaitForOrderForm(
            {QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|5")}));
        QCOMPARE(catalogue.GetRegistry().RegGetString(SettingsKey, QStringLiteral("Street")),
                 QStringLiteral("Hauptstraße 5"));
    }

    void testCancelledFormLeavesTheCartAsItWas()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(AddFromList(catalogue, ScissorsId, QStringLiteral("5")));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(CatalogueWindow::AnswerDialogs([&] { cart.Press("btnSendOrder"); },
                                               {[&](QWidget *dialog) {
                                                   FillMandatoryFields(dialog);
                                                   ClickButton(dialog, "CancelButton");
                                               }}));
        QVERIFY(cart.WaitForLines(
            {QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|5")}));
        QCOMPARE(catalogue.MailAddresses().size(), 0);
        QCOMPARE(catalogue.GetRegistry().RegGetString(SettingsKey, QStringLiteral("Street")),
                 QString());
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestOrder>(argc, argv);
}
#include "test_order.moc"
