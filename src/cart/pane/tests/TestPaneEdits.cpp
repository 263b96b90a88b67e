#include "PaneWindow.h"
#include "browser/WebBrowser.h"
#include "support/EngineTest.h"
#include "support/WaitUntil.h"

#include <QSignalSpy>
#include <QWebEngineView>

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
    void testChangeDuringTheWritingIsShown();
    void testAmountIsStoredWithinItsLimits_data();
    void testAmountIsStoredWithinItsLimits();
    void testAmountOfAMemberIsStored();
    void testCorrectedAmountOfAMemberIsNotMarked();
    void testCategoryKeepsItsColons();
    void testEnterStoresTheEdit();
    void testClickElsewhereStoresTheEdit();
    void testEscapeTakesTheEditBack();
    void testDeletionIsConfirmedFirst();
    void testMemberIsDeleted();
    void testTwoDeletionsBeforeTheReloadDeleteOneLine();
    void testEditsOfAPageThatIsLeftAreIgnored();
    void testFailedDeletionIsReportedAndThePageComesBack();
    void testClickOnAnArticleNumberShowsTheProduct();
    void testKeyOnATitleShowsTheProduct();
    void testErrorTextIsShownAfterARightClick();
    void testColumnsStandInLine();
    void testWholeRowCanBeReachedInALargePage();
    void testLongCartIsShownWhole();
    void testPlaceInTheListOutlivesADeletion_data();
    void testPlaceInTheListOutlivesADeletion();

private:
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

// The page was written from the cart as it was before, and has not confirmed it yet.
void TestPaneEdits::testChangeDuringTheWritingIsShown()
{
    pane->Add(PaneWindow::Scissors, 3);
    QObject::connect(
        pane->Pane().Browser(), &WebBrowser::DocumentComplete, &pane->Pane(),
        [this] {
            pane->Add(PaneWindow::OtherScissors, 4);
            pane->Pane().Initialize();
        },
        Qt::SingleShotConnection);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->WaitFor(QStringLiteral("document.getElementById('fld_1')?.value === '4'")));
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
    // As the program rounds: halves to the even neighbour.
    QTest::newRow("0.5") << QStringLiteral("0.5") << 1 << true;
    QTest::newRow("2.5") << QStringLiteral("2.5") << 2 << true;
    QTest::newRow("3,5") << QStringLiteral("3,5") << 4 << true;
    QTest::newRow("5.6") << QStringLiteral("5.6") << 6 << true;
    QTest::newRow("999.5") << QStringLiteral("999.5") << 999 << true;
    QTest::newRow("-2.5") << QStringLiteral("-2.5") << 1 << true;
    // And reads: decimals, an exponent, but no thousands.
    QTest::newRow("7.") << QStringLiteral("7.") << 7 << true;
    QTest::newRow("1e2") << QStringLiteral("1e2") << 100 << true;
    QTest::newRow("12,500") << QStringLiteral("12,500") << 1 << true;
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

// No message would explain the mark.
void TestPaneEdits::testCorrectedAmountOfAMemberIsNotMarked()
{
    pane->Add(PaneWindow::BasicSet, 1);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->Type(QStringLiteral("#fld_0_2"), QStringLiteral("1200")));
    pane->Press(Qt::Key_Tab);
    QVERIFY(WaitUntil(
        [&] { return pane->Cart().Entries().At(0)->SetItems->At(2)->Amount == qint16{999}; }));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('fld_0_2').value")),
             QVariant(QStringLiteral("999")));
    QCOMPARE(pane->Evaluate(QStringLiteral("document.querySelectorAll('.inError').length")),
             QVariant(0));
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

// The page does not hear of the release: the button's menu has it.
void TestPaneEdits::testErrorTextIsShownAfterARightClick()
{
    pane->Add(PaneWindow::Scissors, 3);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("0")));
    QTest::mousePress(pane->Pane().Browser()->View()->focusProxy(), Qt::RightButton, {},
                      pane->PlaceOf(QStringLiteral("#fld_0")).value());
    QVERIFY(WaitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
    QApplication::activePopupWidget()->close();
    pane->Press(Qt::Key_Tab);
    QVERIFY(pane->WaitFor(QStringLiteral("document.querySelector('.errorText') !== null")));
}

// Each row is laid out by itself.
void TestPaneEdits::testColumnsStandInLine()
{
    pane->GetController().Prices().LoadPriceList(QStringLiteral(APPLICATION_DIR "/price_list.txt"));
    pane->Add(PaneWindow::Scissors, 3);
    pane->Add(PaneWindow::BasicSet, 1);
    pane->Add(PaneWindow::OtherScissors, 999);
    pane->Cart().Entries().At(2)->ArtNr = QStringLiteral("AB 10/115-WWWWWWWWWW");
    const auto places = [this](const char *expression) {
        return pane
            ->Evaluate(QStringLiteral("[...new Set([...document.querySelectorAll('tr.contListRow')]"
                                      ".map(row => %1))]")
                           .arg(QLatin1String(expression)))
            .toList();
    };
    for (const int width : {1040, 600}) {
        pane->Window().resize(width, 700);
        QVERIFY(pane->ShowCart());
        QCOMPARE(places("row.cells[1].getBoundingClientRect().left").size(), qsizetype{1});
        QCOMPARE(places("row.cells[2].getBoundingClientRect().left").size(), qsizetype{1});
        QCOMPARE(places("row.cells[3].getBoundingClientRect().right").size(), qsizetype{1});
        for (const char *const field : {".catField", ".amountField"})
            QCOMPARE(places(qPrintable(QStringLiteral("row.querySelector('%1')"
                                                      ".getBoundingClientRect().left")
                                           .arg(QLatin1String(field))))
                         .size(),
                     qsizetype{1});
        QCOMPARE(places("row.querySelector('.amountField').getBoundingClientRect().right"
                        " <= row.querySelector('a').getBoundingClientRect().left"),
                 QVariantList{true});
        // The longest number fits into its column, and into one line where there is room.
        if (width > 1000)
            QCOMPARE(places("(range => { range.selectNodeContents(row.cells[1]);"
                            " return range.getClientRects().length })(document.createRange())"),
                     QVariantList{1});
        QCOMPARE(places("row.cells[1].scrollWidth <= row.cells[1].clientWidth"),
                 QVariantList{true});
    }
}

void TestPaneEdits::testWholeRowCanBeReachedInALargePage()
{
    pane->Add(PaneWindow::Scissors, 3);
    pane->Add(PaneWindow::OtherScissors, 4);
    pane->Pane().Browser()->View()->setZoomFactor(3);
    QVERIFY(pane->ShowCart());
    DialogDriver driver({Answer(QMessageBox::Ok)});
    pane->Evaluate(
        QStringLiteral("document.querySelector('#contListRow1 td:last-child a').focus()"));
    QVERIFY(pane->WaitFor(QStringLiteral("(r => r.width > 0 && r.right <= innerWidth)(document"
                                         ".activeElement.firstChild.getBoundingClientRect())")));
    QVERIFY(pane->WaitForPageAfter(
        [&] { QVERIFY(pane->Click(QStringLiteral("#contListRow1 td:last-child a"))); },
        CartAfterChange));
    QCOMPARE(pane->Cart().Count(), qint16{1});
}

void TestPaneEdits::testLongCartIsShownWhole()
{
    constexpr int lineCount = 5000;
    for (int i = 0; i < lineCount; ++i)
        pane->Add(PaneWindow::Scissors, 1);
    QVERIFY(pane->ShowCart());
    QVERIFY(
        pane->WaitFor(QStringLiteral("document.querySelectorAll('tr.contListRow').length === %1")
                          .arg(lineCount)));
    QVERIFY(pane->WaitForPageAfter(
        [&] { pane->Pane().Browser()->RunScript(QStringLiteral("delItem('4999')")); },
        CartAfterChange));
    QVERIFY(pane->WaitFor(QStringLiteral("!document.getElementById('contListRow4999')")));
}

void TestPaneEdits::testPlaceInTheListOutlivesADeletion_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("scrolled");
    QTest::newRow("near the first line") << 1040 << 900;
    QTest::newRow("far down") << 1040 << 6000;
    // The descriptions take two lines, which nobody knows of a row that is out of sight.
    QTest::newRow("far down in a narrow window") << 600 << 6000;
}

// The line at the upper edge stays there.
void TestPaneEdits::testPlaceInTheListOutlivesADeletion()
{
    QFETCH(const int, width);
    QFETCH(const int, scrolled);
    pane->GetController().Prices().LoadPriceList(QStringLiteral(APPLICATION_DIR "/price_list.txt"));
    for (qint16 amount = 1; amount <= 300; ++amount)
        pane->Add(PaneWindow::Scissors, amount);
    pane->Window().resize(width, 700);
    QVERIFY(pane->ShowCart());
    pane->Evaluate(QStringLiteral("window.scrollTo(0, %1)").arg(scrolled));
    QVERIFY(pane->WaitFor(QStringLiteral("window.scrollY > %1").arg(scrolled / 2)));
    QVERIFY(pane->WaitForFrames());
    const auto firstRow = [this] {
        return pane
            ->Evaluate(QStringLiteral(
                "(row => [row.id, Math.round(row.getBoundingClientRect().top)])"
                "(document.elementFromPoint(innerWidth / 2, 0).closest('tr.contListRow'))"))
            .toList();
    };
    const QVariantList before = firstRow();
    const int row = before.value(0).toString().mid(11).toInt();
    QVERIFY(row > 10);
    QVERIFY(pane->WaitForPageAfter(
        [&] { pane->Pane().Browser()->RunScript(QStringLiteral("delItem('%1')").arg(row + 4)); },
        CartAfterChange));
    QVERIFY(pane->WaitForFrames());
    QCOMPARE(firstRow(), before);
}

int main(int argc, char **argv)
{
    return RunEngineTest<TestPaneEdits>(argc, argv);
}

#include "TestPaneEdits.moc"
