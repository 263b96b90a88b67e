#include "PaneWindow.h"
#include "browser/WebBrowser.h"
#include "support/EngineTest.h"
#include "support/WaitUntil.h"

#include <QSignalSpy>

using namespace Tesk;

namespace {

const QString CartAfterChange = QStringLiteral("/content/shopping_cart.html?action=doLoad");
const QString Cart = QStringLiteral("/content/shopping_cart.html");

} // namespace

/// The cart's page in the engine: what is shown, and what mouse and keys do in it.
class TestPaneEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { pane = std::make_unique<PaneWindow>(); }
    void cleanup() { pane.reset(); }

    void testEmptyCartSaysSo();
    void testFilledCartShowsItsLines();
    void testAmountIsStoredWithinItsLimits_data();
    void testAmountIsStoredWithinItsLimits();
    void testAmountOfAMemberIsStored();
    void testCategoryKeepsItsColons();
    void testCategoryWithQuotationMarksComesBack();
    void testEnterStoresTheEdit();
    void testClickElsewhereStoresTheEdit();
    void testEscapeTakesTheEditBack();
    void testDeletionIsConfirmedFirst();
    void testMemberIsDeleted();
    void testTwoDeletionsBeforeTheReloadDeleteOneLine();
    void testEditsOfAPageThatIsLeftAreIgnored();
    void testFailedDeletionIsReportedAndThePageComesBack();
    void testClickOnATitleShowsTheProduct_data();
    void testClickOnATitleShowsTheProduct();
    void testClickOnAnArticleNumberShowsTheProduct();
    void testKeyOnATitleShowsTheProduct();
    void testMarkupInTextsRunsNoCommand_data();
    void testMarkupInTextsRunsNoCommand();
    void testOrderFormRunsNoCommandOfATitle();
    void testMarkupInATitleIsShown();
    void testLineOfAnyArticleNumberIsDeleted_data();
    void testLineOfAnyArticleNumberIsDeleted();
    void testLongCartIsShownWhole();
    void testPlaceInTheListOutlivesADeletion();

private:
    bool WaitForPicturesThatFail();

    std::unique_ptr<PaneWindow> pane;
};

void TestPaneEdits::testEmptyCartSaysSo()
{
    QVERIFY(pane->ShowCart());
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('list').innerText.trim()")),
             QVariant(QStringLiteral("Your shopping cart is empty.")));
    for (const char *const name :
         {"btnSave", "btnPrint", "btnSendRequest", "btnSendOrder", "btnDelete"})
        QVERIFY2(!pane->IsEnabled(name), name);
    QVERIFY(pane->IsEnabled("btnLoad"));
    QVERIFY(pane->IsEnabled("btnManual"));
}

void TestPaneEdits::testFilledCartShowsItsLines()
{
    pane->Add(PaneWindow::Scissors, 3, QStringLiteral("OR 2"));
    pane->Add(PaneWindow::BasicSet, 1);
    QVERIFY(pane->ShowCart());
    const int memberCount = static_cast<int>(pane->Lines().size()) - 2;
    QVERIFY(memberCount > 1);
    QCOMPARE(pane->Evaluate(QStringLiteral("document.querySelectorAll('tr.contListRow').length")),
             QVariant(2 + memberCount));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('cat_0').value")),
             QVariant(QStringLiteral("OR 2")));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('fld_0').value")),
             QVariant(QStringLiteral("3")));
    for (const char *const name : {"btnSave", "btnLoad", "btnManual", "btnPrint", "btnSendRequest",
                                   "btnSendOrder", "btnDelete"})
        QVERIFY2(pane->IsEnabled(name), name);
}

void TestPaneEdits::testAmountIsStoredWithinItsLimits_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("stored");
    QTest::addColumn<bool>("isReported");
    QTest::newRow("7") << QStringLiteral("7") << 7 << false;
    QTest::newRow("999") << QStringLiteral("999") << 999 << false;
    QTest::newRow("0") << QStringLiteral("0") << 1 << true;
    QTest::newRow("-5") << QStringLiteral("-5") << 1 << true;
    QTest::newRow("abc") << QStringLiteral("abc") << 1 << true;
    QTest::newRow("1200") << QStringLiteral("1200") << 999 << true;
    QTest::newRow("100000") << QStringLiteral("100000") << 999 << true;
}

void TestPaneEdits::testAmountIsStoredWithinItsLimits()
{
    QFETCH(const QString, typed);
    QFETCH(const int, stored);
    QFETCH(const bool, isReported);
    pane->Add(PaneWindow::Scissors, 3);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), typed));
    pane->Press(Qt::Key_Tab);
    QVERIFY(WaitUntil([&] { return pane->Cart().Entries().At(0)->Amount == stored; }));
    // The page shows what is stored, and says so when that is not what was typed.
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('fld_0').value")),
             QVariant(QString::number(stored)));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.querySelector('.errorText')?.textContent")),
             isReported ? QVariant(QStringLiteral("Please enter an amount from 1 to 999."))
                        : QVariant());
}

void TestPaneEdits::testAmountOfAMemberIsStored()
{
    pane->Add(PaneWindow::BasicSet, 1);
    QVERIFY(pane->ShowCart());
    // The members of a set that came from the catalogue are counted from 1.
    QVERIFY(pane->Type(QStringLiteral("#fld_0_2"), QStringLiteral("12")));
    pane->Press(Qt::Key_Tab);
    QVERIFY(WaitUntil(
        [&] { return pane->Cart().Entries().At(0)->SetItems->At(2)->Amount == qint16{12}; }));
    QCOMPARE(pane->Cart().Entries().At(0)->Amount, qint16{1});
}

void TestPaneEdits::testCategoryKeepsItsColons()
{
    pane->Add(PaneWindow::Scissors, 3);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->Type(QStringLiteral("#cat_0"), QStringLiteral("OR:2:left")));
    pane->Press(Qt::Key_Tab);
    QVERIFY(WaitUntil(
        [&] { return pane->Cart().Entries().At(0)->AltCategory == QStringLiteral("OR:2:left"); }));
}

void TestPaneEdits::testCategoryWithQuotationMarksComesBack()
{
    pane->Add(PaneWindow::Scissors, 3);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->Type(QStringLiteral("#cat_0"), QStringLiteral("3\" & <b>'ü")));
    pane->Press(Qt::Key_Tab);
    QVERIFY(WaitUntil([&] { return !pane->Cart().Entries().At(0)->AltCategory.isEmpty(); }));
    QVERIFY(pane->ShowCart());
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('cat_0').value")),
             QVariant(QStringLiteral("3” & <b>'ü")));
}

void TestPaneEdits::testEnterStoresTheEdit()
{
    pane->Add(PaneWindow::Scissors, 3);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("8")));
    pane->Press(Qt::Key_Return);
    QVERIFY(WaitUntil([&] { return pane->Cart().Entries().At(0)->Amount == qint16{8}; }));
}

void TestPaneEdits::testClickElsewhereStoresTheEdit()
{
    pane->Add(PaneWindow::Scissors, 3);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("8")));
    QVERIFY(pane->Click(QStringLiteral("#cat_0")));
    QVERIFY(WaitUntil([&] { return pane->Cart().Entries().At(0)->Amount == qint16{8}; }));
}

void TestPaneEdits::testEscapeTakesTheEditBack()
{
    pane->Add(PaneWindow::Scissors, 3);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("8")));
    pane->Press(Qt::Key_Escape);
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_0').value === '3'")));
    pane->Press(Qt::Key_Tab);
    QVERIFY(pane->WaitFor(QStringLiteral("document.activeElement.id !== 'fld_0'")));
    QVERIFY(pane->WaitForReports());
    QCOMPARE(pane->Cart().Entries().At(0)->Amount, qint16{3});
}

void TestPaneEdits::testDeletionIsConfirmedFirst()
{
    pane->Add(PaneWindow::Scissors, 3);
    pane->Add(PaneWindow::OtherScissors, 4);
    const QStringList before = pane->Lines();
    QVERIFY(pane->ShowCart());
    const QString link = QStringLiteral("#contListRow0 td:last-child a");
    {
        QString question;
        DialogDriver driver({[&](QDialog &dialog) {
            question = qobject_cast<QMessageBox *>(&dialog)->text();
            dialog.reject();
        }});
        QVERIFY(pane->Click(link));
        QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
        QCOMPARE(question, QStringLiteral("Do you really want to remove AB 10/115 from the "
                                          "shopping cart?"));
        QVERIFY(pane->WaitForReports());
        QCOMPARE(pane->Lines(), before);
    }
    DialogDriver driver({Answer(QMessageBox::Ok)});
    QVERIFY(pane->WaitForPageAfter([&] { QVERIFY(pane->Click(link)); }, CartAfterChange));
    QCOMPARE(pane->Lines(), before.mid(1));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.querySelectorAll('tr.contListRow').length")),
             QVariant(1));
}

void TestPaneEdits::testMemberIsDeleted()
{
    pane->Add(PaneWindow::BasicSet, 1);
    QStringList lines = pane->Lines();
    QVERIFY(pane->ShowCart());
    DialogDriver driver({Answer(QMessageBox::Ok)});
    QVERIFY(pane->WaitForPageAfter(
        [&] { QVERIFY(pane->Click(QStringLiteral("#contListRow0_2 td:last-child a"))); },
        CartAfterChange));
    lines.removeAt(2);
    QCOMPARE(pane->Lines(), lines);
}

void TestPaneEdits::testTwoDeletionsBeforeTheReloadDeleteOneLine()
{
    for (const qint16 amount : {1, 2, 3})
        pane->Add(PaneWindow::Scissors, amount);
    const QStringList before = pane->Lines();
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->WaitForPageAfter(
        [&] { pane->Pane().Browser()->RunScript(QStringLiteral("delItem('0'); delItem('0')")); },
        CartAfterChange));
    QCOMPARE(pane->Lines(), before.mid(1));
    // The page that came back may delete again.
    QVERIFY(pane->WaitForPageAfter(
        [&] { pane->Pane().Browser()->RunScript(QStringLiteral("delItem('0')")); },
        CartAfterChange));
    QCOMPARE(pane->Lines(), before.mid(2));
}

// Their keys are those of the lines before the deletion.
void TestPaneEdits::testEditsOfAPageThatIsLeftAreIgnored()
{
    for (const qint16 amount : {1, 2, 3})
        pane->Add(PaneWindow::Scissors, amount);
    const QStringList before = pane->Lines();
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->WaitForPageAfter(
        [&] {
            pane->Pane().Browser()->RunScript(
                QStringLiteral("delItem('0'); window.status = 'amountChange:fld_1:77'"));
        },
        CartAfterChange));
    QCOMPARE(pane->Lines(), before.mid(1));
}

void TestPaneEdits::testFailedDeletionIsReportedAndThePageComesBack()
{
    pane->Add(PaneWindow::Scissors, 1);
    const QStringList before = pane->Lines();
    QVERIFY(pane->ShowCart());
    QString message;
    DialogDriver driver({[&message](QDialog &dialog) {
        message = qobject_cast<QMessageBox *>(&dialog)->text();
        Answer(QMessageBox::Ok)(dialog);
    }});
    QVERIFY(pane->WaitForPageAfter(
        [&] { pane->Pane().Browser()->RunScript(QStringLiteral("delItem('0_0')")); },
        CartAfterChange));
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QVERIFY2(message.contains(QStringLiteral("AB 10/115")), qPrintable(message));
    QCOMPARE(pane->Lines(), before);
}

void TestPaneEdits::testClickOnATitleShowsTheProduct_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("reported");
    const auto row = [](const char *name, const char *id, const char *reported) {
        QTest::newRow(name) << QString::fromUtf8(id) << QString::fromUtf8(reported);
    };
    row("a number", "127", "127");
    row("letters and blanks", "a b", "a b");
    row("nothing", "", "");
    row("apostrophe", "it's", "it's");
    row("number sign", "a#b", "a#b");
    row("percent sign", "50%", "50%");
    row("ampersand", "a&b", "a&b");
    row("letters of the code page", "ü€", "ü€");
    row("an equals sign", "a=b", "b");
    row("the cart's page", "shopping_cart.html?action=doSave", "doSave");
}

void TestPaneEdits::testClickOnATitleShowsTheProduct()
{
    QFETCH(const QString, id);
    QFETCH(const QString, reported);
    pane->Add(PaneWindow::Scissors, 1);
    pane->Cart().Entries().At(0)->Id = id;
    QVERIFY(pane->ShowCart());
    const QSignalSpy products(&pane->Pane(), &ShoppingCart::OnProductSelect);
    QVERIFY(pane->WaitForPageAfter(
        [&] { QVERIFY(pane->Click(QStringLiteral("#contListRow0 td:nth-child(3)"))); }, Cart));
    QCOMPARE(products.count(), 1);
    QCOMPARE(products.first().first().toString(), reported);
    QCOMPARE(pane->Evaluate(QStringLiteral("document.querySelectorAll('tr.contListRow').length")),
             QVariant(1));
}

void TestPaneEdits::testClickOnAnArticleNumberShowsTheProduct()
{
    pane->Add(PaneWindow::BasicSet, 1);
    QVERIFY(pane->ShowCart());
    const QSignalSpy products(&pane->Pane(), &ShoppingCart::OnProductSelect);
    QVERIFY(pane->WaitForPageAfter(
        [&] { QVERIFY(pane->Click(QStringLiteral("#contListRow0_1 td:nth-child(2)"))); }, Cart));
    QCOMPARE(products.count(), 1);
    QCOMPARE(products.first().first().toString(),
             pane->Cart().Entries().At(0)->SetItems->At(1)->Id);
}

void TestPaneEdits::testKeyOnATitleShowsTheProduct()
{
    pane->Add(PaneWindow::Scissors, 1);
    pane->Cart().Entries().At(0)->Id = QStringLiteral("it's");
    QVERIFY(pane->ShowCart());
    const QSignalSpy products(&pane->Pane(), &ShoppingCart::OnProductSelect);
    pane->Pane().setFocus();
    pane->Evaluate(QStringLiteral("document.querySelector('td[tabindex]').focus()"));
    QVERIFY(pane->WaitForPageAfter([&] { pane->Press(Qt::Key_Return); }, Cart));
    QCOMPARE(products.first().first().toString(), QStringLiteral("it's"));
}

/// Whether the page has been told of all pictures that could not be shown so far.
bool TestPaneEdits::WaitForPicturesThatFail()
{
    pane->Evaluate(QStringLiteral("(() => { const picture = new Image();"
                                  " picture.onerror = () => { window.hasFailed = true; };"
                                  " picture.src = 'none.gif'; })()"));
    return pane->WaitFor(QStringLiteral("window.hasFailed")) && pane->WaitForReports();
}

// What a file of somebody else may hold, in each of a line's texts.
void TestPaneEdits::testMarkupInTextsRunsNoCommand_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *text) {
        QTest::newRow(name) << QString::fromLatin1(text);
    };
    row("script", "<script>window.status='delItem:0'</script>");
    row("picture", "<img src=x onerror=\"window.status='delItem:0'\">");
    row("drawing", "<svg><svg onload=\"window.status='delItem:0'\">");
    row("frame", "<iframe srcdoc=\"<script>parent.status='delItem:0'</script>\"></iframe>");
    row("frame's address", "<iframe src=\"javascript:parent.status='delItem:0'\"></iframe>");
    row("field", "<input autofocus onfocus=\"window.status='delItem:0'\">");
    row("details", "<details open ontoggle=\"window.status='delItem:0'\">x</details>");
    row("style", "<style onload=\"window.status='delItem:0'\"></style>");
    row("end of the attribute", "\"><img src=x onerror=\"window.status='delItem:0'\">");
    row("end of the cell", "</td></tr></table><img src=x onerror=\"window.status='delItem:0'\">");
    row("amount", "<img src=x onerror=\"window.status='amountChange:fld_0:999'\">");
    row("another page",
        "<meta http-equiv=refresh content=\"0;url=shopping_cart.html?action=doSave\">");
}

void TestPaneEdits::testMarkupInTextsRunsNoCommand()
{
    QFETCH(const QString, text);
    pane->Add(PaneWindow::Scissors, 1);
    clsShoppingCartItem &item = *pane->Cart().Entries().At(0);
    item.Id = item.ArtNr = item.Title = item.AltCategory = text;
    const QStringList before = pane->Lines();
    QVERIFY(pane->ShowCart());
    const QSignalSpy pages(pane->Pane().Browser(), &WebBrowser::DocumentComplete);
    QVERIFY(WaitForPicturesThatFail());
    QCOMPARE(pane->Lines(), before);
    QCOMPARE(pages.count(), 0);
}

void TestPaneEdits::testOrderFormRunsNoCommandOfATitle()
{
    pane->Add(PaneWindow::Scissors, 1);
    const QString hostile = QStringLiteral("<img src=x onerror=\"window.status='delItem:0'\">");
    pane->Cart().Entries().At(0)->Title = hostile;
    pane->lastContact = {hostile, hostile};
    QVERIFY(pane->WaitForPageAfter([&] { pane->Pane().ExtContactCall(false); },
                                   QStringLiteral("/content/order_form.html")));
    QVERIFY(WaitForPicturesThatFail());
    QCOMPARE(pane->Cart().Count(), qint16{1});
}

void TestPaneEdits::testMarkupInATitleIsShown()
{
    pane->Add(PaneWindow::Scissors, 1);
    pane->Cart().Entries().At(0)->Title =
        QStringLiteral("it's \"<b>bold</b>\" <new> H<sub>2</sub>O < 5 &amp; \u00FC");
    QVERIFY(pane->ShowCart());
    QCOMPARE(pane->Evaluate(QStringLiteral("document.querySelector('#contListRow0 b').innerText")),
             QVariant(QStringLiteral("bold")));
    QCOMPARE(pane->Evaluate(QStringLiteral(
                 "document.querySelector('#contListRow0 td:nth-child(3)').textContent")),
             QVariant(QStringLiteral("it's \"bold\"  H2O < 5 & \u00FC")));
}

void TestPaneEdits::testLineOfAnyArticleNumberIsDeleted_data()
{
    QTest::addColumn<QString>("artNr");
    const auto row = [](const char *name, const char *artNr) {
        QTest::newRow(name) << QString::fromLatin1(artNr);
    };
    row("apostrophe", "AB 1'2");
    row("percent signs", "50%27)+%41");
    row("backslash", "AB\\1");
    row("a command", "');delItem('0');('");
}

// The question names the number as it is, and the line goes only when the user says yes.
void TestPaneEdits::testLineOfAnyArticleNumberIsDeleted()
{
    QFETCH(const QString, artNr);
    pane->Add(PaneWindow::OtherScissors, 4);
    pane->Add(PaneWindow::Scissors, 3);
    pane->Cart().Entries().At(1)->ArtNr = artNr;
    const QStringList before = pane->Lines();
    QVERIFY(pane->ShowCart());
    const QString link = QStringLiteral("#contListRow1 td:last-child a");
    QStringList questions;
    const auto reply = [&questions](QMessageBox::StandardButton button) {
        return [&questions, button](QDialog &dialog) {
            questions.append(qobject_cast<QMessageBox *>(&dialog)->text());
            Answer(button)(dialog);
        };
    };
    DialogDriver driver({reply(QMessageBox::Cancel), reply(QMessageBox::Ok)});
    QVERIFY(pane->Click(link));
    QVERIFY(WaitUntil([&] { return questions.size() == 1; }));
    QVERIFY(pane->WaitForReports());
    QCOMPARE(pane->Lines(), before);
    QVERIFY(pane->WaitForPageAfter([&] { QVERIFY(pane->Click(link)); }, CartAfterChange));
    QCOMPARE(pane->Lines(), before.mid(0, 1));
    const QString question =
        QStringLiteral("Do you really want to remove %1 from the shopping cart?").arg(artNr);
    QCOMPARE(questions, QStringList({question, question}));
}

void TestPaneEdits::testLongCartIsShownWhole()
{
    constexpr int lineCount = 5000;
    for (int i = 0; i < lineCount; ++i)
        pane->Add(PaneWindow::Scissors, 1);
    QVERIFY(pane->ShowCart());
    QCOMPARE(pane->Evaluate(QStringLiteral("document.querySelectorAll('tr.contListRow').length")),
             QVariant(lineCount));
    QVERIFY(pane->WaitForPageAfter(
        [&] { pane->Pane().Browser()->RunScript(QStringLiteral("delItem('4999')")); },
        CartAfterChange));
    QVERIFY(pane->WaitFor(QStringLiteral("!document.getElementById('contListRow4999')")));
}

void TestPaneEdits::testPlaceInTheListOutlivesADeletion()
{
    for (qint16 amount = 1; amount <= 60; ++amount)
        pane->Add(PaneWindow::Scissors, amount);
    QVERIFY(pane->ShowCart());
    pane->Evaluate(QStringLiteral("window.scrollTo(0, 900)"));
    QVERIFY(pane->WaitFor(QStringLiteral("window.scrollY === 900")));
    QVERIFY(pane->WaitForPageAfter(
        [&] { pane->Pane().Browser()->RunScript(QStringLiteral("delItem('40')")); },
        CartAfterChange));
    QVERIFY(pane->WaitFor(QStringLiteral("window.scrollY === 900")));
}

int main(int argc, char **argv)
{
    return RunEngineTest<TestPaneEdits>(argc, argv);
}

#include "TestPaneEdits.moc"
