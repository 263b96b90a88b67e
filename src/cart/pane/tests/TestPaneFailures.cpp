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

using namespace Tesk;

namespace {

const QString CartPage = QStringLiteral("/content/shopping_cart.html");
const QString CartAfterChange = CartPage + QStringLiteral("?action=doLoad");
const QString CartAndSave = CartPage + QStringLiteral("?action=doSave");

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
    void testFailedManualAddShowsWhatWasAdded();
    void testEngineThatFailsInAnEditComesBack();
    void testReloadAfterAFailureRepeatsNoCommand();
    void testCommandRunsWithoutAPage();

private:
    void Click(const char *button) { ClickOn(pane->Button(button)); }

    std::unique_ptr<PaneWindow> pane;
};

void TestPaneFailures::init()
{
    pane = std::make_unique<PaneWindow>();
    pane->Add(PaneWindow::Scissors, 3, QStringLiteral("OR 2"));
    QVERIFY(pane->ShowCart());
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

void TestPaneFailures::testEngineThatFailsInAnEditComesBack()
{
    const QStringList before = pane->Lines();
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("77")));
    QVERIFY(pane->WaitForPageAfter([&] { pane->KillEngine(); }, CartPage));
    QCOMPARE(pane->Lines(), before);
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_0').value === '3'")));
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
