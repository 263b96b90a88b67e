#include "PaneWindow.h"
#include "browser/WebBrowser.h"
#include "sqlite2/Writer.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/Files.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QWebEngineView>

using namespace Tesk;

namespace {

const QString CartPage = QStringLiteral("/content/shopping_cart.html");
const QString CartAfterChange = CartPage + QStringLiteral("?action=doLoad");
const QString CartAndSave = CartPage + QStringLiteral("?action=doSave");

const QRegularExpression LineOfAFailedPrint(QStringLiteral("is not printed"));

} // namespace

/// Files that cannot be written or read, a broken catalogue, an engine that fails: the cart stays
/// whole, and the pane goes on working.
class TestPaneFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();
    void cleanup() { pane.reset(); }

    void testFailedSaveLosesNothing();
    void testFailedLoadShowsWhatWasRead();
    void testFileOfAHundredThousandLinesIsLoadedAsFarAsItFits();
    void testFailedManualAddShowsWhatWasAdded();
    void testFailedSaveOfAPageThatWasLeftEndsThere();
    void testEngineThatFailsInAnEditComesBack();
    void testEngineThatFailsInALoadComesBack_data();
    void testEngineThatFailsInALoadComesBack();
    void testEngineThatFailsInAPrintEndsItWithoutAMessage();
    void testPrinterThatFailsEndsThePrintWithoutAMessage();
    void testEditsGoOnAfterAPageThatDidNotCome();
    void testCommandWhileThePageComesBackIsCarriedOut_data();
    void testCommandWhileThePageComesBackIsCarriedOut();
    void testCommandAfterAPageThatDidNotComeBackIsCarriedOut();
    void testReloadAfterAFailureRepeatsNoCommand();
    void testCommandRunsWithoutAPage();

private:
    void Click(const char *button) { ClickOn(pane->Button(button)); }
    bool IsUsable();

    std::unique_ptr<PaneWindow> pane;
};

void TestPaneFailures::init()
{
    pane = std::make_unique<PaneWindow>();
    pane->Add(PaneWindow::Scissors, 3, QStringLiteral("OR 2"));
    QVERIFY(pane->ShowCart());
}

/// Whether an edit reaches the cart and a command opens its dialog.
bool TestPaneFailures::IsUsable()
{
    QDialog *opened = nullptr;
    DialogDriver driver({[&](QDialog &dialog) {
        opened = &dialog;
        dialog.reject();
    }});
    const bool isTyped = pane->WaitFor(QStringLiteral("document.getElementById('fld_0')")) &&
                         pane->Type(QStringLiteral("#fld_0"), QStringLiteral("55"));
    Click("btnManual");
    const bool isUsable = isTyped && WaitUntil([&] { return opened != nullptr; }) &&
                          pane->Cart().Entries().At(0)->Amount == qint16{55};
    pane->Cart().Entries().At(0)->Amount = 3;
    return isUsable;
}

void TestPaneFailures::testFailedSaveLosesNothing()
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

void TestPaneFailures::testFailedLoadShowsWhatWasRead()
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

// A set takes 32,767 members; the cart keeps what stands before it.
void TestPaneFailures::testFileOfAHundredThousandLinesIsLoadedAsFarAsItFits()
{
    const QString path = pane->PathOf(QStringLiteral("order.csv"));
    WriteBytes(path, "5;AB 5;Hook;7;left\r\n\r\n" +
                         QByteArray("1;AB 10/115;Scissors;3;\r\n").repeated(100000) + "\r\n");
    QString message;
    DialogDriver driver({Choose(path), [&](QDialog &dialog) {
                             message = qobject_cast<QMessageBox *>(&dialog)->text();
                             dialog.accept();
                         }});
    QVERIFY(pane->WaitForPageAfter([&] { Click("btnLoad"); }, CartAfterChange));
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY2(message.contains(QStringLiteral("Line 32771")) &&
                 message.contains(QStringLiteral("32767")),
             qUtf8Printable(message));
    QCOMPARE(pane->Lines(), QStringList(QStringLiteral("5;AB 5;Hook;7;left")));
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_0')?.value === '7'")));
    QVERIFY(IsUsable());
}

// One of the two sets cannot be added; the other is.
void TestPaneFailures::testFailedManualAddShowsWhatWasAdded()
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

// Two pages complete before the program hears that the first has taken what was written into it.
void TestPaneFailures::testFailedSaveOfAPageThatWasLeftEndsThere()
{
    QVERIFY(QDir().mkdir(pane->PathOf(QStringLiteral("order.csv"))));
    const QString content = pane->GetController().GetContentBaseUrl();
    WebBrowser *const browser = pane->Pane().Browser();
    DialogDriver driver({Choose(pane->PathOf(QStringLiteral("order"))), Answer(QMessageBox::Ok)});
    Q_EMIT browser->DocumentComplete(content + CartAndSave);
    Q_EMIT browser->DocumentComplete(content + CartPage);
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY(pane->WaitForReports());
    QVERIFY(IsUsable());
}

void TestPaneFailures::testEngineThatFailsInAnEditComesBack()
{
    const QStringList before = pane->Lines();
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("77")));
    QVERIFY(pane->WaitForPageAfter([&] { pane->KillEngine(); }, CartPage));
    QCOMPARE(pane->Lines(), before);
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_0').value === '3'")));
    QVERIFY(IsUsable());
}

void TestPaneFailures::testEngineThatFailsInALoadComesBack_data()
{
    QTest::addColumn<QString>("moment");
    for (const char *const moment : {"asked for", "begun", "complete"})
        QTest::newRow(moment) << QString::fromLatin1(moment);
}

// The page of a command, which is carried out once for all that.
void TestPaneFailures::testEngineThatFailsInALoadComesBack()
{
    QFETCH(const QString, moment);
    const QStringList before = pane->Lines();
    WebBrowser *const browser = pane->Pane().Browser();
    QObject once;
    const auto kill = [&] {
        once.disconnect();
        QObject::disconnect(browser, nullptr, &once, nullptr);
        QObject::disconnect(browser->View()->page(), nullptr, &once, nullptr);
        pane->KillEngine();
    };
    const QSignalSpy ends(browser->View()->page(), &QWebEnginePage::renderProcessTerminated);
    if (moment == QLatin1String("begun"))
        connect(browser->View()->page(), &QWebEnginePage::loadingChanged, &once, kill);
    else if (moment == QLatin1String("complete"))
        connect(browser, &WebBrowser::DocumentComplete, &once, kill);
    int dialogs = 0;
    const auto count = [&](QDialog &dialog) {
        ++dialogs;
        dialog.reject();
    };
    DialogDriver driver({count, count});
    Click("btnSave");
    if (moment == QLatin1String("asked for")) {
        QVERIFY(WaitUntil([&] { return browser->View()->page()->isLoading(); }));
        kill();
    }
    QVERIFY(WaitUntil([&] { return ends.count() == 1 && dialogs > 0; }));
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_0')?.value === '3'")));
    QVERIFY(pane->WaitForReports());
    QCOMPARE(dialogs, 1);
    QCOMPARE(pane->Lines(), before);
    QVERIFY(IsUsable());
}

void TestPaneFailures::testEngineThatFailsInAPrintEndsItWithoutAMessage()
{
    const QStringList before = pane->Lines();
    WebBrowser *const browser = pane->Pane().Browser();
    const QSignalSpy texts(browser, &WebBrowser::StatusTextChange);
    pane->Evaluate(QStringLiteral("void matchMedia('print').addListener(() => {"
                                  " window.status = 'being printed'; for (;;); })"));
    {
        const DialogDriver driver({Unexpected("a message")});
        QTest::ignoreMessage(QtWarningMsg, LineOfAFailedPrint);
        pane->Pane().OnPrint();
        QVERIFY(WaitUntil([&] { return !texts.isEmpty(); }));
        QVERIFY(pane->WaitForPageAfter([&] { pane->KillEngine(); }, CartPage));
        QVERIFY(pane->WaitForEnds({PrintEnd::EngineFailed}));
        QVERIFY(pane->WaitForReports());
    }
    QVERIFY(!QFile::exists(pane->PrintedFile()));
    QCOMPARE(pane->Lines(), before);
    QVERIFY(IsUsable());
    pane->Pane().OnPrint();
    QVERIFY(pane->WaitForEnds({PrintEnd::EngineFailed, PrintEnd::Printed}));
    QVERIFY(pane->PrintedText().contains(QStringLiteral("AB 10/115")));
}

void TestPaneFailures::testPrinterThatFailsEndsThePrintWithoutAMessage()
{
    QVERIFY(QDir().mkdir(pane->PrintedFile()));
    const DialogDriver driver({Unexpected("a message")});
    QTest::ignoreMessage(QtWarningMsg, LineOfAFailedPrint);
    Click("btnPrint");
    QVERIFY(pane->WaitForEnds({PrintEnd::PrinterFailed}));
    QVERIFY(pane->WaitForReports());
    QVERIFY(QDir().rmdir(pane->PrintedFile()));
    Click("btnPrint");
    QVERIFY(pane->WaitForEnds({PrintEnd::PrinterFailed, PrintEnd::Printed}));
    QVERIFY(pane->PrintedText().contains(QStringLiteral("AB 10/115")));
}

// The page stays, and its keys are those of the lines before the deletion.
void TestPaneFailures::testEditsGoOnAfterAPageThatDidNotCome()
{
    pane->Add(PaneWindow::OtherScissors, 4);
    QVERIFY(pane->ShowCart());
    WebBrowser *const browser = pane->Pane().Browser();
    const QSignalSpy failed(browser, &WebBrowser::LoadFailed);
    QObject once;
    connect(browser->View()->page(), &QWebEnginePage::loadStarted, &once, [&] {
        QObject::disconnect(browser->View()->page(), nullptr, &once, nullptr);
        browser->View()->stop();
    });
    browser->RunScript(QStringLiteral("delItem('0')"));
    QVERIFY(WaitUntil([&] { return !failed.isEmpty(); }));
    QCOMPARE(pane->Cart().Count(), qint16{1});
    QVERIFY(pane->WaitFor(QStringLiteral("document.querySelectorAll('tr.contListRow').length"
                                         " === 1")));
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("9")));
    pane->Press(Qt::Key_Tab);
    QVERIFY(WaitUntil([&] { return pane->Cart().Entries().At(0)->Amount == qint16{9}; }));
    QCOMPARE(pane->Cart().Entries().At(0)->ArtNr, QStringLiteral("AB 10/116"));
}

void TestPaneFailures::testCommandWhileThePageComesBackIsCarriedOut_data()
{
    QTest::addColumn<QString>("button");
    for (const char *const button : {"btnSave", "btnPrint", "btnSendRequest", "btnSendOrder"})
        QTest::newRow(button) << QString::fromLatin1(button);
}

void TestPaneFailures::testCommandWhileThePageComesBackIsCarriedOut()
{
    QFETCH(const QString, button);
    int dialogs = 0;
    DialogDriver driver({[&](QDialog &dialog) {
        ++dialogs;
        dialog.reject();
    }});
    QSignalSpy ends(pane->Pane().Browser()->View()->page(),
                    &QWebEnginePage::renderProcessTerminated);
    pane->KillEngine();
    QVERIFY(WaitUntil([&] { return !ends.isEmpty(); }));
    Click(qPrintable(button));
    QVERIFY(WaitUntil([&] { return dialogs + pane->printCount == 1; }));
    QVERIFY(pane->WaitForPrints(pane->printCount));
}

// The engine fails a second time, and the page is given up.
void TestPaneFailures::testCommandAfterAPageThatDidNotComeBackIsCarriedOut()
{
    int dialogs = 0;
    DialogDriver driver({[&](QDialog &dialog) {
        ++dialogs;
        dialog.reject();
    }});
    const QSignalSpy given(pane->Pane().Browser(), &WebBrowser::LoadFailed);
    QVERIFY(pane->WaitForPageAfter([&] { pane->KillEngine(); }, CartPage));
    pane->KillEngine();
    QVERIFY(WaitUntil([&] { return !given.isEmpty(); }));
    Click("btnSave");
    QVERIFY(WaitUntil([&] { return dialogs == 1; }));
    QVERIFY(IsUsable());
}

void TestPaneFailures::testReloadAfterAFailureRepeatsNoCommand()
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
    QVERIFY(pane->WaitForPageAfter([&] { pane->KillEngine(); }, CartAndSave));
    QVERIFY(pane->WaitForReports());
    QCOMPARE(dialogs, 1);
    // The same command of the user is carried out again.
    Click("btnSave");
    QVERIFY(WaitUntil([&] { return dialogs == 2; }));
}

// Before anything was shown, and with the engine just dead.
void TestPaneFailures::testCommandRunsWithoutAPage()
{
    {
        PaneWindow other;
        DialogDriver driver({Cancel});
        other.Pane().OnManualAdd();
        QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    }
    DialogDriver driver({Cancel});
    pane->KillEngine();
    Click("btnManual");
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_0').value === '3'")));
}

int main(int argc, char **argv)
{
    return RunEngineTest<TestPaneFailures>(argc, argv);
}

#include "TestPaneFailures.moc"
