#include "PaneWindow.h"
#include "browser/WebBrowser.h"
#include "support/EngineTest.h"
#include "support/Files.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QWebEngineView>

using namespace Tesk;

namespace {

const QString CartPage = QStringLiteral("/content/shopping_cart.html");
const QString CartAfterChange = CartPage + QStringLiteral("?action=doLoad");
const QString CartAndSave = CartPage + QStringLiteral("?action=doSave");
const QString OrderForm = QStringLiteral("/content/order_form.html");
const QString PrintedOrderForm = OrderForm + QStringLiteral("?action=doPrint");

/// Fills the mandatory fields of a contact form and presses a button of it.
DialogDriver::Action FillAndPress(const char *button)
{
    return [button](QDialog &dialog) {
        for (const char *const name :
             {"InstName", "Street", "PostalCodeCity", "Country", "Phone", "PersonName"})
            dialog.findChild<QLineEdit *>(QLatin1String(name))
                ->setText(QStringLiteral("Some ") + QLatin1String(name));
        dialog.findChild<QPushButton *>(QLatin1String(button))->click();
    };
}

} // namespace

/// The commands of the toolbars, with the mouse, in the engine.
class TestPaneCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();
    void cleanup() { pane.reset(); }

    void testSaveWritesTheCart();
    void testLoadReplacesTheCart();
    void testCancelledLoadShowsTheCartAsItWas();
    void testManualAddAddsALine();
    void testCancelledManualAddChangesNothing();
    void testRequestIsSentAndTheOrderFormShown();
    void testOrderIsPrinted();
    void testCancelledFormLeavesTheCartShown();
    void testDeleteAsksFirstAndLeavesWhatAnEmptyCartAllows();
    void testEditGoesBeforeTheCommand_data();
    void testEditGoesBeforeTheCommand();
    void testCorrectedAmountIsSeenBeforeTheCommand_data();
    void testCorrectedAmountIsSeenBeforeTheCommand();
    void testCommandGoesOnWithTheCorrectedAmountOfAMember_data();
    void testCommandGoesOnWithTheCorrectedAmountOfAMember();
    void testDoubleClickIsOneCommand_data();
    void testDoubleClickIsOneCommand();
    void testCommandOfThePageIsCarriedOut();
    void testTabSwitchDoesNotLoseACommand();
    void testChangeDuringACommandIsShown();
    void testChangeDuringTheWritingIsPrinted();
    void testRefreshIsReplacedByTheNextNavigation();

private:
    void Click(const char *button) { ClickOn(pane->Button(button)); }

    std::unique_ptr<PaneWindow> pane;
};

void TestPaneCommands::init()
{
    pane = std::make_unique<PaneWindow>();
    pane->Add(PaneWindow::Scissors, 3, QStringLiteral("OR 2"));
    QVERIFY(pane->ShowCart());
}

void TestPaneCommands::testSaveWritesTheCart()
{
    DialogDriver driver({Choose(pane->PathOf(QStringLiteral("order")))});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnSave"); }, CartAndSave));
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QCOMPARE(BytesOf(pane->PathOf(QStringLiteral("order.csv"))),
             pane->Lines().join(QString()).toLatin1() + "\r\n\r\n\r\n");
}

void TestPaneCommands::testLoadReplacesTheCart()
{
    const QString path = pane->PathOf(QStringLiteral("order.csv"));
    WriteBytes(path, "5;AB 5;Hook;7;left\r\n\r\n6;AB 6;Probe;8;\r\n\r\n");
    DialogDriver driver({Choose(path)});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnLoad"); }, CartAfterChange));
    QCOMPARE(pane->Lines(), QStringList({QStringLiteral("5;AB 5;Hook;7;left"),
                                         QStringLiteral("6;AB 6;Probe;8;")}));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('cat_0').value")),
             QVariant(QStringLiteral("left")));
}

void TestPaneCommands::testCancelledLoadShowsTheCartAsItWas()
{
    const QStringList before = pane->Lines();
    DialogDriver driver({Cancel});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnLoad"); }, CartAfterChange));
    QVERIFY(driver.IsDone());
    QCOMPARE(pane->Lines(), before);
}

void TestPaneCommands::testManualAddAddsALine()
{
    DialogDriver driver({[](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(QStringLiteral("tbArtNrTesk0"))
            ->setText(QStringLiteral("AB 10/116"));
        dialog.findChild<QPushButton *>(QStringLiteral("btnOK"))->click();
    }});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnManual"); }, CartPage));
    QCOMPARE(pane->Cart().Count(), qint16{2});
    QCOMPARE(pane->Cart().Entries().At(1)->ArtNr, QStringLiteral("AB 10/116"));
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_1').value === '1'")));
}

void TestPaneCommands::testCancelledManualAddChangesNothing()
{
    pane->Evaluate(QStringLiteral("window.teskMark = 1"));
    DialogDriver driver({Cancel});
    Click("btnManual");
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY(pane->WaitForReports());
    QCOMPARE(pane->Cart().Count(), qint16{1});
    QCOMPARE(pane->Evaluate(QStringLiteral("window.teskMark")), QVariant(1));
}

void TestPaneCommands::testRequestIsSentAndTheOrderFormShown()
{
    pane->Add(PaneWindow::BasicSet, 2);
    DialogDriver driver({FillAndPress("SendButton")});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnSendRequest"); }, OrderForm));
    QCOMPARE(pane->mails.size(), qsizetype{1});
    QVERIFY(pane->mails.first().contains("?subject=Anfrage&"));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('caption').innerText")),
             QVariant(QStringLiteral("Anfrage")));
    const QString summary =
        pane->Evaluate(QStringLiteral("document.getElementById('summary').innerText")).toString();
    QVERIFY2(summary.contains(QStringLiteral("\nName der Institution: Some InstName\n"
                                             "Strasse: Some Street\n")),
             qUtf8Printable(summary));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.querySelectorAll('tr.contListRow').length")),
             QVariant(static_cast<int>(pane->Lines().size())));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.querySelectorAll('input, a').length")),
             QVariant(0));
    QCOMPARE(pane->printCount, 0);
}

void TestPaneCommands::testOrderIsPrinted()
{
    DialogDriver driver({FillAndPress("PrintButton")});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnSendOrder"); }, PrintedOrderForm));
    QVERIFY(pane->WaitForPrints(1));
    QVERIFY(pane->mails.isEmpty());
    const QString text = pane->PrintedText();
    QVERIFY2(text.contains(QStringLiteral("Bestellung")) &&
                 text.contains(QStringLiteral("Telefon: Some Phone")) &&
                 text.contains(QStringLiteral("AB 10/115")),
             qUtf8Printable(text));
}

void TestPaneCommands::testCancelledFormLeavesTheCartShown()
{
    DialogDriver driver({Cancel});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnSendOrder"); },
                                   CartPage + QStringLiteral("?action=doSendOrder")));
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY(pane->WaitForReports());
    QVERIFY(pane->Pane().Browser()->Address().contains(CartPage));
    QVERIFY(pane->mails.isEmpty());
}

void TestPaneCommands::testDeleteAsksFirstAndLeavesWhatAnEmptyCartAllows()
{
    {
        QString title;
        QString question;
        DialogDriver driver({[&](QDialog &dialog) {
            auto *const box = qobject_cast<QMessageBox *>(&dialog);
            title = box->windowTitle();
            question = box->text();
            QCOMPARE(box->icon(), QMessageBox::Question);
            QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
            box->button(QMessageBox::No)->click();
        }});
        Click("btnDelete");
        QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
        QCOMPARE(title, QStringLiteral("Exit?"));
        QCOMPARE(question, QStringLiteral("Do you really want to empty the whole shopping cart?"));
        QCOMPARE(pane->Cart().Count(), qint16{1});
    }
    for (const char *const button : {"btnSave", "btnLoad", "btnManual", "btnPrint",
                                     "btnSendRequest", "btnSendOrder", "btnDelete"})
        QVERIFY2(pane->IsEnabled(button), button);
    DialogDriver driver({Answer(QMessageBox::Yes)});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnDelete"); }, CartAfterChange));
    QCOMPARE(pane->Cart().Count(), qint16{0});
    for (const char *const button :
         {"btnSave", "btnPrint", "btnSendRequest", "btnSendOrder", "btnDelete"})
        QVERIFY2(!pane->IsEnabled(button), button);
    QVERIFY(pane->IsEnabled("btnLoad"));
    QVERIFY(pane->IsEnabled("btnManual"));
}

void TestPaneCommands::testEditGoesBeforeTheCommand_data()
{
    QTest::addColumn<QString>("button");
    for (const char *const name : {"btnSave", "btnLoad", "btnManual", "btnPrint", "btnSendRequest",
                                   "btnSendOrder", "btnDelete"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

// The field has the focus still when the button is clicked, and keeps it.
void TestPaneCommands::testEditGoesBeforeTheCommand()
{
    QFETCH(const QString, button);
    for (const int amount : {4, 5, 6}) {
        QVERIFY(pane->Type(QStringLiteral("#fld_0"), QString::number(amount)));
        QCOMPARE(int{pane->Cart().Entries().At(0)->Amount}, amount - 1);
        int stored = 0;
        const auto look = [&] { stored = pane->Cart().Entries().At(0)->Amount; };
        DialogDriver driver({[&](QDialog &dialog) {
            look();
            dialog.reject();
        }});
        if (button == QLatin1String("btnPrint"))
            pane->whilePrinting = look;
        Click(qPrintable(button));
        QVERIFY(WaitUntil([&] { return stored != 0; }));
        QCOMPARE(stored, amount);
        QVERIFY(pane->WaitForPrints(pane->printCount));
        QVERIFY(WaitUntil([] { return QApplication::activeModalWidget() == nullptr; }));
        QVERIFY(pane->WaitForReports());
        QVERIFY(pane->ShowCart());
    }
}

void TestPaneCommands::testCorrectedAmountIsSeenBeforeTheCommand_data()
{
    QTest::addColumn<QString>("button");
    for (const char *const button :
         {"btnSave", "btnManual", "btnPrint", "btnSendRequest", "btnSendOrder"})
        QTest::newRow(button) << QString::fromLatin1(button);
}

void TestPaneCommands::testCorrectedAmountIsSeenBeforeTheCommand()
{
    QFETCH(const QString, button);
    int dialogs = 0;
    DialogDriver driver({[&](QDialog &dialog) {
        ++dialogs;
        dialog.reject();
    }});
    const auto commands = [&] { return dialogs + pane->printCount; };
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("0")));
    Click(qPrintable(button));
    QVERIFY(WaitUntil([this] {
        return pane->Evaluate(QStringLiteral("document.querySelector('.errorText') !== null"))
            .toBool();
    }));
    QVERIFY(pane->WaitForReports());
    QCOMPARE(int{pane->Cart().Entries().At(0)->Amount}, 1);
    QCOMPARE(commands(), 0);

    Click(qPrintable(button));
    QVERIFY(WaitUntil([&] { return commands() == 1; }));
    QVERIFY(pane->WaitForPrints(pane->printCount));
    QVERIFY(pane->WaitForReports());
    QVERIFY(pane->ShowCart());
}

void TestPaneCommands::testCommandGoesOnWithTheCorrectedAmountOfAMember_data()
{
    testCorrectedAmountIsSeenBeforeTheCommand_data();
}

// Nothing is said of it, so there is nothing to be seen first.
void TestPaneCommands::testCommandGoesOnWithTheCorrectedAmountOfAMember()
{
    QFETCH(const QString, button);
    pane->Add(PaneWindow::BasicSet, 1);
    QVERIFY(pane->ShowCart());
    const auto member = [this] { return pane->Cart().Entries().At(1)->SetItems->At(2); };
    int stored = -1;
    const auto look = [&] { stored = member()->Amount; };
    DialogDriver driver({[&](QDialog &dialog) {
        look();
        dialog.reject();
    }});
    pane->whilePrinting = look;
    QVERIFY(pane->Type(QStringLiteral("#fld_1_2"), QStringLiteral("1200")));
    Click(qPrintable(button));
    QVERIFY(WaitUntil([&] { return stored != -1; }));
    QCOMPARE(stored, 999);
    QVERIFY(pane->WaitForPrints(pane->printCount));
    QVERIFY(pane->WaitForReports());
    QVERIFY(pane->ShowCart());
}

void TestPaneCommands::testDoubleClickIsOneCommand_data()
{
    testEditGoesBeforeTheCommand_data();
}

void TestPaneCommands::testDoubleClickIsOneCommand()
{
    QFETCH(const QString, button);
    int dialogs = 0;
    const auto count = [&](QDialog &dialog) {
        ++dialogs;
        dialog.reject();
    };
    DialogDriver driver({count, count, count});
    // Both clicks come before the program answers the first.
    for (int click = 0; click < 2; ++click)
        QTest::mouseClick(pane->Button(qPrintable(button)), Qt::LeftButton);
    const auto commands = [&] { return dialogs + pane->printCount; };
    QVERIFY(WaitUntil([&] { return commands() > 0; }));
    QVERIFY(pane->WaitForReports());
    QVERIFY(pane->ShowCart());
    QCOMPARE(commands(), 1);
}

// Pages may offer commands as links.
void TestPaneCommands::testCommandOfThePageIsCarriedOut()
{
    DialogDriver driver({Choose(pane->PathOf(QStringLiteral("order")))});
    pane->Evaluate(QStringLiteral("void(window.location = 'shopping_cart.html?action=doSave')"));
    QVERIFY(WaitUntil([&] { return QFile::exists(pane->PathOf(QStringLiteral("order.csv"))); }));
}

void TestPaneCommands::testTabSwitchDoesNotLoseACommand()
{
    DialogDriver driver({Choose(pane->PathOf(QStringLiteral("order"))), Cancel});
    Click("btnSave");
    pane->Pane().Initialize();
    QVERIFY(WaitUntil([&] { return pane->Pane().Browser()->View()->page()->isLoading(); }));
    pane->Pane().Initialize();
    QVERIFY(WaitUntil([&] { return QFile::exists(pane->PathOf(QStringLiteral("order.csv"))); }));
    QVERIFY(pane->WaitForReports());
    QVERIFY(!driver.IsDone()); // The command ran once.
}

void TestPaneCommands::testChangeDuringACommandIsShown()
{
    DialogDriver driver({[this](QDialog &dialog) {
        pane->Add(PaneWindow::OtherScissors, 4);
        pane->Pane().Initialize();
        dialog.reject();
    }});
    Click("btnManual");
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_1')?.value === '4'")));
}

void TestPaneCommands::testChangeDuringTheWritingIsPrinted()
{
    QObject::connect(
        pane->Pane().Browser(), &WebBrowser::DocumentComplete, &pane->Pane(),
        [this] {
            pane->Add(PaneWindow::OtherScissors, 4);
            pane->Pane().Initialize();
            pane->Pane().OnPrint();
        },
        Qt::SingleShotConnection);
    pane->Pane().Initialize();
    QVERIFY(pane->WaitForPrints(1));
    const QString text = pane->PrintedText();
    QVERIFY2(text.contains(QStringLiteral("AB 10/116")), qUtf8Printable(text));
}

void TestPaneCommands::testRefreshIsReplacedByTheNextNavigation()
{
    pane->lastContact = {QStringLiteral("Kontakt"), QStringLiteral("a\r\nb")};
    QVERIFY(pane->WaitForPageAfter(
        [&] {
            pane->Pane().Initialize();
            pane->Pane().ExtContactCall(false);
            pane->Pane().Initialize();
        },
        OrderForm));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('summary').innerHTML")),
             QVariant(QStringLiteral("a<br>b")));
}

int main(int argc, char **argv)
{
    return RunEngineTest<TestPaneCommands>(argc, argv);
}

#include "TestPaneCommands.moc"
