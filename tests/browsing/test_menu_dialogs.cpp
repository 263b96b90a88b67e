#include "about/frmAbout.h"
#include "contact/dlgContact.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineTest.h"
#include "support/Mail.h"
#include "support/PdfFiles.h"
#include "support/SampleCatalogue.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/MainMenu.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

namespace {

bool AnswerContact(CatalogueWindow &catalogue,
                   const std::vector<CatalogueWindow::DialogAnswer> &answers)
{
    const MainMenu &menus = *catalogue.Window().menus;
    return CatalogueWindow::AnswerDialogs(
        [&] { ChooseFromMenu(catalogue, menus.mExtra, menus.mContact); }, answers);
}

void FillContact(QWidget *dialog)
{
    QVERIFY(qobject_cast<dlgContact *>(dialog) != nullptr);
    Fill(dialog, "InstName", QStringLiteral("Cabinet Lefèvre"));
    Fill(dialog, "Street", QStringLiteral("12 rue de l’Église"));
    Fill(dialog, "PostalCodeCity", QStringLiteral("67000 Strasbourg"));
    Fill(dialog, "Country", QStringLiteral("France"));
    Fill(dialog, "Phone", QStringLiteral("+33 3"));
    Fill(dialog, "PersonName", QStringLiteral("Zoé Lefèvre"));
    ClickButton(dialog, "RequestInfoItems1");
    ClickButton(dialog, "RequestInfoItems3");
    ClickButton(dialog, "ContactOver2");
}

// The apostrophe is one of the characters between 80 and 9F of the code page.
const QStringList Body{QStringLiteral("Art der Institution: Hospital or clinic"),
                       QStringLiteral("Name der Institution: Cabinet Lefèvre"),
                       QStringLiteral("Strasse: 12 rue de l’Église"),
                       QStringLiteral("PLZ / Stadt: 67000 Strasbourg"),
                       QStringLiteral("Land: France"),
                       QStringLiteral("Telefon: +33 3"),
                       QStringLiteral("Mr Zoé Lefèvre"),
                       QStringLiteral("Ich benötige: Price list,Data sheets"),
                       QStringLiteral("Ich bitte um: Reply by e-mail")};

} // namespace

/// The dialogs of the menus: contact, settings and about.
class TestMenuDialogs final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testSendComposesAMailAndShowsTheOrderForm()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(AnswerContact(catalogue, {[&](QWidget *dialog) {
                                  FillContact(dialog);
                                  ClickButton(dialog, "SendButton");
                              }}));
        QCOMPARE(catalogue.MailAddresses().size(), 1);
        const Mail mail = Mail::Of(catalogue.MailAddresses().constFirst());
        QCOMPARE(mail.subject, QStringLiteral("Kontakt"));
        QCOMPARE(mail.Lines(), Body);
        CartTab cart(catalogue);
        QVERIFY(cart.IsCurrent());
        QVERIFY(cart.Page().WaitFor(
            QStringLiteral("order_form.html"),
            QStringLiteral("document.getElementById('caption')?.innerText === 'Kontakt'")));
        QCOMPARE(cart.Page()
                     .Evaluate(QStringLiteral("document.getElementById('summary').innerText"))
                     .toString()
                     .trimmed()
                     .split(u'\n'),
                 Body);
        // Coming to the tab anew shows the cart again.
        catalogue.Window().tabMain->setCurrentIndex(frmCatalog::ProductsTab);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForText(QStringLiteral("Your shopping cart is empty.")));
    }

    void testPrintPrintsTheOrderFormAndSendsNothing()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        catalogue.GetController().AddProductToCart(2, 7, QStringLiteral("OR 2"));
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("contact.pdf"));
        QVERIFY(AnswerContact(catalogue, {[&](QWidget *dialog) {
                                              FillContact(dialog);
                                              ClickButton(dialog, "PrintButton");
                                          },
                                          PrintInto(file)}));
        QVERIFY(WaitUntil([&] { return QFile::exists(file); }));
        const QString paper = TextOfPdf(file);
        for (const QString &line : Body)
            QVERIFY2(paper.contains(line), qPrintable(line + QLatin1String(" in ") + paper));
        QVERIFY(paper.contains(QLatin1String("AB 10/116")));
        QVERIFY(catalogue.MailAddresses().isEmpty());
        QVERIFY(CartTab(catalogue).IsCurrent());
    }

    void testCancelChangesNothing()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(AnswerContact(catalogue, {[&](QWidget *dialog) {
                                  FillContact(dialog);
                                  ClickButton(dialog, "CancelButton");
                              }}));
        QVERIFY(catalogue.MailAddresses().isEmpty());
        QCOMPARE(catalogue.Window().tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QCOMPARE(catalogue.GetRegistry().RegGetString(SettingsKey, QStringLiteral("Country")),
                 QString());
    }

    void testWhatWasTypedIsThereAgainAfterAFailedAttempt()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(AnswerContact(catalogue, {[&](QWidget *dialog) {
                                  Fill(dialog, "Country", QStringLiteral("España"));
                                  ClickButton(dialog, "SendButton");
                                  QVERIFY(dialog->isVisible());
                                  ClickButton(dialog, "CancelButton");
                              }}));
        QString country;
        QVERIFY(AnswerContact(
            catalogue, {[&](QWidget *dialog) {
                country = dialog->findChild<QLineEdit *>(QStringLiteral("Country"))->text();
                Cancel()(dialog);
            }}));
        QCOMPARE(country, QStringLiteral("España"));
        QVERIFY(catalogue.MailAddresses().isEmpty());
    }

    void testAboutBoxAndSettings()
    {
        CatalogueWindow catalogue(SampleCatalogue, QStringLiteral("French"));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QFile version(SampleCatalogue + QLatin1String("/version"));
        QVERIFY(version.open(QIODevice::ReadOnly));
        const QString line = QString::fromLatin1(version.readLine()).trimmed();
        const MainMenu &menus = *catalogue.Window().menus;
        QString message;
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { ChooseFromMenu(catalogue, menus.mHelp, menus.mInfo); }, {[&](QWidget *dialog) {
                QVERIFY(qobject_cast<frmAbout *>(dialog) != nullptr);
                const auto text = [&](const char *label) {
                    return dialog->findChild<QLabel *>(QLatin1String(label))->text();
                };
                QVERIFY(!text("lblTitle").isEmpty());
                QCOMPARE(dialog->windowTitle(), QStringLiteral("Info zu ") + text("lblTitle"));
                QCOMPARE(text("lblVersion"), QStringLiteral("Version ") + line);
                QCOMPARE(text("lblDisclaimer"),
                         catalogue.GetController().GetText(QStringLiteral("disclaimer")));
                QVERIFY(!text("lblDisclaimer").isEmpty());
                // Nothing tells of a program for it on this system.
                QVERIFY(CatalogueWindow::AnswerDialogs(
                    [&] {
                        auto *const button =
                            dialog->findChild<QWidget *>(QStringLiteral("cmdSysInfo"));
                        ClickOn(button);
                    },
                    {PressButton(QMessageBox::Ok, &message)}));
                ClickOn(dialog->findChild<QWidget *>(QStringLiteral("cmdOK")));
            }}));
#ifndef Q_OS_WIN
        QCOMPARE(message, QStringLiteral("Systeminformationen sind momentan nicht verfügbar"));
#endif
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { ChooseFromMenu(catalogue, menus.mExtra, menus.mSettings); },
            {PressButton(QMessageBox::Ok, &message)}));
        QCOMPARE(message, QStringLiteral("not implemented yet... coming soon."));
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestMenuDialogs>(argc, argv);
}
#include "test_menu_dialogs.moc"
