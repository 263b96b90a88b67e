#include "PaneWindow.h"
#include "browser/WebBrowser.h"
#include "sqlite2/Writer.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QWebEngineView>

using namespace Tesk;

namespace {

const QString CartPage = QStringLiteral("/content/shopping_cart.html");
const QString CartAfterChange = CartPage + QStringLiteral("?action=doLoad");
const QString CartAndSave = CartPage + QStringLiteral("?action=doSave");
const QString OrderForm = QStringLiteral("/content/order_form.html");
const QString PrintedOrderForm = OrderForm + QStringLiteral("?action=doPrint");

QByteArray BytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

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
    void testDeleteAsksFirst();
    void testEditGoesBeforeTheCommand_data();
    void testEditGoesBeforeTheCommand();
    void testCorrectedAmountIsSeenBeforeTheCommand_data();
    void testCorrectedAmountIsSeenBeforeTheCommand();
    void testDoubleClickIsOneCommand_data();
    void testDoubleClickIsOneCommand();
    void testCommandOfThePageIsCarriedOut();
    void testTabSwitchDoesNotLoseACommand();
    void testRefreshIsReplacedByTheNextNavigation();
    void testFailedSaveLosesNothing();
    void testFailedLoadShowsWhatWasRead();
    void testFailedManualAddShowsWhatWasAdded();
    void testButtonsAreReachedByKeys();
    void testMnemonicPressesAButtonWhilePageHasFocus();
    void testCaptionsFollowTheLanguage();
    void testNoButtonIsHiddenInANarrowWindow_data();
    void testNoButtonIsHiddenInANarrowWindow();
    void testEngineThatFailsInAnEditComesBack();
    void testReloadAfterAFailureRepeatsNoCommand();
    void testCommandRunsWithoutAPage();

private:
    void Click(const char *button) { ClickOn(pane->Button(button)); }
    void KillEngine();

    std::unique_ptr<PaneWindow> pane;
};

void TestPaneCommands::init()
{
    pane = std::make_unique<PaneWindow>();
    pane->Add(PaneWindow::Scissors, 3, QStringLiteral("OR 2"));
    QVERIFY(pane->ShowCart());
}

void TestPaneCommands::KillEngine()
{
    const qint64 process = pane->Pane().Browser()->View()->page()->renderProcessPid();
    QVERIFY(process > 0);
    QProcess::execute(QStringLiteral("kill"), {QStringLiteral("-KILL"), QString::number(process)});
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

void TestPaneCommands::testDeleteAsksFirst()
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
    DialogDriver driver({Answer(QMessageBox::Yes)});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnDelete"); }, CartAfterChange));
    QCOMPARE(pane->Cart().Count(), qint16{0});
    QVERIFY(!pane->IsEnabled("btnSave"));
    QVERIFY(!pane->IsEnabled("btnDelete"));
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

void TestPaneCommands::testFailedSaveLosesNothing()
{
    const QStringList before = pane->Lines();
    const QString path = pane->PathOf(QStringLiteral("order.csv"));
    QVERIFY(QDir().mkdir(path));
    QString message;
    DialogDriver driver({Choose(pane->PathOf(QStringLiteral("order"))), [&](QDialog &dialog) {
                             message = qobject_cast<QMessageBox *>(&dialog)->text();
                             dialog.accept();
                         }});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnSave"); }, CartAndSave));
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY2(message.contains(path), qUtf8Printable(message));
    QCOMPARE(pane->Lines(), before);
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_0').value === '3'")));
    // A better name saves it.
    DialogDriver next({Choose(pane->PathOf(QStringLiteral("better")))});
    Click("btnSave");
    QVERIFY(WaitUntil([&] { return QFile::exists(pane->PathOf(QStringLiteral("better.csv"))); }));
}

void TestPaneCommands::testFailedLoadShowsWhatWasRead()
{
    const QString path = pane->PathOf(QStringLiteral("order.csv"));
    WriteBytes(path, "5;AB 5;Hook;7;left\r\n\r\n6;AB 6;Probe\r\n\r\n");
    QString message;
    DialogDriver driver({Choose(path), [&](QDialog &dialog) {
                             message = qobject_cast<QMessageBox *>(&dialog)->text();
                             dialog.accept();
                         }});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnLoad"); }, CartAfterChange));
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY2(message.contains(path) && message.contains(QStringLiteral("Line 3")),
             qUtf8Printable(message));
    QCOMPARE(pane->Lines(), QStringList(QStringLiteral("5;AB 5;Hook;7;left")));
    QVERIFY(pane->WaitFor(QStringLiteral("document.querySelectorAll('#list input').length === 2")));
    // The pane goes on working.
    DialogDriver next({Cancel});
    Click("btnManual");
    QVERIFY(WaitUntil([&] { return next.IsDone(); }));
}

// One of the two sets cannot be added; the other is.
void TestPaneCommands::testFailedManualAddShowsWhatWasAdded()
{
    Sqlite2::Writer writer;
    writer.CreateTable("CREATE TABLE products_global (ID INTEGER, artNr VARCHAR, isSet VARCHAR)");
    writer.CreateTable("CREATE TABLE products_localized (ID INTEGER, lang VARCHAR, name VARCHAR, "
                       "form VARCHAR)");
    writer.CreateTable("CREATE TABLE products2sets (iSetID INTEGER, iProdGlobId INTEGER, "
                       "iAmount INTEGER, iOrder INTEGER)");
    for (const char *const id : {"1", "2"}) {
        writer.InsertRow("products_global", {id, std::string("SET ") + id, "True"});
        writer.InsertRow("products_localized", {id, "en", "Set", ""});
    }
    writer.InsertRow("products2sets", {"1", "1", "many", "1"});
    writer.InsertRow("products2sets", {"2", "2", "3", "1"});
    const QString database = pane->PathOf(QStringLiteral("broken.db"));
    writer.Finish(QFile::encodeName(database).toStdString());
    const QString directory = pane->PathOf(QStringLiteral("app"));
    QVERIFY(CopyWithDatabase(QStringLiteral(APPLICATION_DIR), directory, database));

    PaneWindow broken(QStringLiteral("English"), directory);
    QVERIFY(broken.ShowCart());
    QString message;
    DialogDriver driver(
        {[](QDialog &dialog) {
             for (const int row : {0, 1})
                 dialog.findChild<QLineEdit *>(QStringLiteral("tbArtNrTesk%1").arg(row))
                     ->setText(QStringLiteral("SET %1").arg(row + 1));
             dialog.findChild<QPushButton *>(QStringLiteral("btnOK"))->click();
         },
         [&](QDialog &dialog) {
             message = qobject_cast<QMessageBox *>(&dialog)->text();
             dialog.accept();
         }});
    QVERIFY(broken.WaitForPageAfter([&] { ClickOn(broken.Button("btnManual")); }, CartPage));
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY2(message.contains(QStringLiteral("many")), qUtf8Printable(message));
    QCOMPARE(broken.Lines(),
             QStringList({QStringLiteral("2;SET 2;Set;1;"), QStringLiteral("2;SET 2;Set;3;")}));
    QVERIFY(
        broken.WaitFor(QStringLiteral("document.querySelectorAll('tr.contListRow').length === 2")));
}

void TestPaneCommands::testButtonsAreReachedByKeys()
{
    const QList<const char *> names{"btnSave",        "btnLoad",      "btnManual", "btnPrint",
                                    "btnSendRequest", "btnSendOrder", "btnDelete"};
    pane->Button(names.first())->setFocus(Qt::TabFocusReason);
    for (const char *const name : names) {
        QCOMPARE(QApplication::focusWidget(), pane->Button(name));
        QTest::keyClick(pane->Window().windowHandle(), Qt::Key_Tab);
    }
    QVERIFY(pane->Pane().Browser()->isAncestorOf(QApplication::focusWidget()));
    // Enter and Space press the button.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        pane->Button("btnManual")->setFocus(Qt::TabFocusReason);
        DialogDriver driver({Cancel});
        QTest::keyClick(pane->Window().windowHandle(), key);
        QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    }
}

void TestPaneCommands::testMnemonicPressesAButtonWhilePageHasFocus()
{
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("9")));
    DialogDriver driver({Cancel});
    // "&Add articles …"
    QTest::keyClick(pane->Window().windowHandle(), Qt::Key_A, Qt::AltModifier);
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QCOMPARE(pane->Cart().Entries().At(0)->Amount, qint16{9});
}

void TestPaneCommands::testCaptionsFollowTheLanguage()
{
    QCOMPARE(pane->Button("btnSendOrder")->text(), QStringLiteral("Send or&der"));
    QCOMPARE(pane->Button("btnSendOrder")->toolTip(), QStringLiteral("Send order (Alt+D)"));
    pane->GetController().Languages().SetLanguage(0);
    pane->Pane().InitGui();
    const QHash<const char *, QString> captions{
        {"btnSave", QStringLiteral("S&peichern")},
        {"btnLoad", QStringLiteral("&Laden")},
        {"btnManual", QStringLiteral("&Artikel hinzufügen …")},
        {"btnPrint", QStringLiteral("D&rucken")},
        {"btnSendRequest", QStringLiteral("A&nfrage senden")},
        {"btnSendOrder", QStringLiteral("&Bestellung senden")},
        {"btnDelete", QStringLiteral("Warenkorb l&eeren")},
    };
    for (auto caption = captions.begin(); caption != captions.end(); ++caption)
        QCOMPARE(pane->Button(caption.key())->text(), caption.value());
}

void TestPaneCommands::testNoButtonIsHiddenInANarrowWindow_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("language");
    for (const int width : {320, 520, 590, 800, 1280}) {
        for (int language = 0; language < LanguageSupport::LanguageCount; ++language)
            QTest::addRow("%d, language %d", width, language) << width << language;
    }
}

void TestPaneCommands::testNoButtonIsHiddenInANarrowWindow()
{
    QFETCH(const int, width);
    QFETCH(const int, language);
    pane->GetController().Languages().SetLanguage(static_cast<qint16>(language));
    pane->Pane().InitGui();
    pane->Window().resize(width, 600);
    QCoreApplication::processEvents();
    QCOMPARE(pane->Window().width(), width);
    QList<QRect> places;
    const auto buttons = pane->Pane().findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), qsizetype{7});
    for (QPushButton *const button : buttons) {
        QVERIFY2(IsWhollyVisible(button), qPrintable(button->objectName()));
        QVERIFY(button->width() >= button->sizeHint().width());
        const QRect place(button->mapTo(&pane->Pane(), QPoint()), button->size());
        for (const QRect &other : std::as_const(places))
            QVERIFY(!place.intersects(other));
        places.append(place);
    }
}

void TestPaneCommands::testEngineThatFailsInAnEditComesBack()
{
    const QStringList before = pane->Lines();
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("77")));
    QVERIFY(pane->WaitForPageAfter([&] { KillEngine(); }, CartPage));
    QCOMPARE(pane->Lines(), before);
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_0').value === '3'")));
}

void TestPaneCommands::testReloadAfterAFailureRepeatsNoCommand()
{
    int dialogs = 0;
    const auto count = [&](QDialog &dialog) {
        ++dialogs;
        dialog.reject();
    };
    DialogDriver driver({count, count, count});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnSave"); }, CartAndSave));
    QVERIFY(WaitUntil([&] { return dialogs == 1; }));
    QVERIFY(pane->WaitForReports());
    QVERIFY(pane->WaitForPageAfter([&] { KillEngine(); }, CartAndSave));
    QVERIFY(pane->WaitForReports());
    QCOMPARE(dialogs, 1);
    // The same command of the user is carried out again.
    Click("btnSave");
    QVERIFY(WaitUntil([&] { return dialogs == 2; }));
}

// Before anything was shown, and with the engine just dead.
void TestPaneCommands::testCommandRunsWithoutAPage()
{
    {
        PaneWindow other;
        DialogDriver driver({Cancel});
        other.Pane().OnManualAdd();
        QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    }
    DialogDriver driver({Cancel});
    KillEngine();
    Click("btnManual");
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_0').value === '3'")));
}

int main(int argc, char **argv)
{
    return RunEngineTest<TestPaneCommands>(argc, argv);
}

#include "TestPaneCommands.moc"
