#include "browser/WebBrowser.h"
#include "cart/model/clsShoppingCart.h"
#include "cart/pane/ShoppingCart.h"
#include "core/tests/DialogDriver.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineProcess.h"
#include "support/EngineTest.h"
#include "support/PdfFiles.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEngineView>

using namespace Tesk;

namespace {

constexpr qint16 ScissorsId = 2;
const QString Scissors =
    QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|OR 2|7");

/// Makes the page tell when it is laid out for the printer, which never ends.
const QString EndlessPrint = QStringLiteral(
    "void matchMedia('print').addListener(() => { window.status = 'laid out'; for (;;); })");

bool PrintTheCart(CatalogueWindow &catalogue, CartTab &cart, const QString &file)
{
    return CatalogueWindow::AnswerDialogs([&] { cart.Press("btnPrint"); }, {PrintInto(file)}) &&
           catalogue.Window().isVisible();
}

} // namespace

/// The engine's process fails, which both browsers of the window share, or the window is closed at
/// a bad moment.
class TestEngineFailures final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { catalogue.reset(); }

    void testLoadIsTakenUpAgain();
    void testEditIsTakenUpAgain();
    void testFailedPrintOfTheCartEndsWithoutAMessage();
    void testFailedPrintOfAPageIsReported();
    void testPrintOutlivesTheWindow_data();
    void testPrintOutlivesTheWindow();

private:
    QString PathOf(const char *name) const { return folder.filePath(QLatin1String(name)); }
    bool OpenList();

    QTemporaryDir folder;
    std::unique_ptr<CatalogueWindow> catalogue;
};

void TestEngineFailures::init()
{
    catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
    QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    catalogue->GetController().AddProductToCart(ScissorsId, 7, QStringLiteral("OR 2"));
}

bool TestEngineFailures::OpenList()
{
    return WaitForFillAfter(*catalogue,
                            [this] { ClickInTree(*catalogue, FindLongLeaf(*catalogue)); });
}

void TestEngineFailures::testLoadIsTakenUpAgain()
{
    WebBrowser &browser = *catalogue->Window().wbMain;
    const CategoryNode *const leaf = FindLongLeaf(*catalogue);
    QObject once;
    connect(browser.View()->page(), &QWebEnginePage::loadingChanged, &once, [&] {
        QObject::disconnect(browser.View()->page(), nullptr, &once, nullptr);
        KillEngine(browser);
    });
    ClickInTree(*catalogue, leaf);
    QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_list.html")));
    QCOMPARE(ShownCaption(*catalogue), leaf->text);
    QCOMPARE(RowCount(*catalogue), 20);
    CartTab cart(*catalogue);
    QVERIFY(cart.Open());
    QVERIFY(cart.WaitForLines({Scissors}));
}

void TestEngineFailures::testEditIsTakenUpAgain()
{
    QVERIFY(OpenList());
    const QString caption = ShownCaption(*catalogue);
    CartTab cart(*catalogue);
    QVERIFY(cart.Open());
    QVERIFY(cart.WaitForLines({Scissors}));
    QVERIFY(cart.Page().TypeInto(QStringLiteral("#fld_0"), QStringLiteral("88")));
    QSignalSpy completed(catalogue->Window().wbMain, &WebBrowser::DocumentComplete);
    QVERIFY(cart.Page().WaitForPageAfter(QStringLiteral("shopping_cart.html"), [&] {
        KillEngine(*catalogue->Window().ucShoppingCart->Browser());
    }));
    QVERIFY(cart.WaitForLines({Scissors}));
    QVERIFY(cart.Page().TypeInto(QStringLiteral("#fld_0"), QStringLiteral("9")));
    cart.Page().PressKey(Qt::Key_Tab);
    QVERIFY(WaitUntil(
        [&] { return catalogue->GetController().GetShoppingCart().Entries().At(0)->Amount == 9; }));

    // The page behind the cart is back as well.
    QVERIFY(WaitUntil([&] { return !completed.isEmpty(); }));
    catalogue->Window().tabMain->setCurrentIndex(frmCatalog::ProductsTab);
    QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_list.html")));
    QCOMPARE(ShownCaption(*catalogue), caption);
    QVERIFY(catalogue->Click(QStringLiteral("#contListRow2 td:nth-child(2)")));
    QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html")));
}

void TestEngineFailures::testFailedPrintOfTheCartEndsWithoutAMessage()
{
    CartTab cart(*catalogue);
    QVERIFY(cart.Open());
    QVERIFY(cart.WaitForLines({Scissors}));
    WebBrowser &browser = *catalogue->Window().ucShoppingCart->Browser();
    cart.Page().Evaluate(EndlessPrint);
    const QSignalSpy texts(&browser, &WebBrowser::StatusTextChange);
    QVERIFY(PrintTheCart(*catalogue, cart, PathOf("failed.pdf")));
    QVERIFY(WaitUntil([&] { return !texts.isEmpty(); }));
    {
        const DialogDriver driver({Unexpected("a message")});
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("is not printed")));
        KillEngine(browser);
        QVERIFY(cart.WaitForLines({Scissors}));
    }
    QVERIFY(!QFile::exists(PathOf("failed.pdf")));
    QVERIFY(PrintTheCart(*catalogue, cart, PathOf("again.pdf")));
    QVERIFY(WaitUntil(
        [&] { return TextOfPdf(PathOf("again.pdf")).contains(QStringLiteral("AB 10/116")); }));
}

void TestEngineFailures::testFailedPrintOfAPageIsReported()
{
    QVERIFY(OpenList());
    WebBrowser &browser = *catalogue->Window().wbMain;
    catalogue->Evaluate(EndlessPrint);
    const QSignalSpy texts(&browser, &WebBrowser::StatusTextChange);
    QVERIFY(CatalogueWindow::AnswerDialogs(
        [this] { PressKey(&catalogue->Window(), Qt::Key_P, Qt::ControlModifier); },
        {PrintInto(PathOf("page.pdf"))}));
    QVERIFY(WaitUntil([&] { return !texts.isEmpty(); }));
    QString message;
    QVERIFY(CatalogueWindow::AnswerDialogs([&] { KillEngine(browser); },
                                           {PressButton(QMessageBox::Ok, &message)}));
    QCOMPARE(message, catalogue->GetController().GetText(QStringLiteral("errorPrintEngine")));
    QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_list.html")));
    QCOMPARE(RowCount(*catalogue), 20);
}

void TestEngineFailures::testPrintOutlivesTheWindow_data()
{
    QTest::addColumn<bool>("isCart");
    QTest::newRow("of the cart") << true;
    QTest::newRow("of a list") << false;
}

// The window is closed as soon as the print dialog is.
void TestEngineFailures::testPrintOutlivesTheWindow()
{
    QFETCH(const bool, isCart);
    CartTab cart(*catalogue);
    QVERIFY(OpenList());
    if (isCart) {
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForLines({Scissors}));
    }
    const QString file = PathOf(isCart ? "cart.pdf" : "list.pdf");
    QVERIFY(CatalogueWindow::AnswerDialogs(
        [this] { PressKey(&catalogue->Window(), Qt::Key_P, Qt::ControlModifier); },
        {PrintInto(file)}));
    QVERIFY(CatalogueWindow::AnswerDialogs([this] { catalogue->Window().close(); },
                                           {PressButton(QMessageBox::Yes)}));
    catalogue.reset();
    QVERIFY(TextOfPdf(file).contains(isCart ? QStringLiteral("AB 10/116")
                                            : QStringLiteral("Tesk Instruments GmbH")));
}

int main(int argc, char **argv)
{
    return RunEngineTest<TestEngineFailures>(argc, argv);
}
#include "test_engine_failures.moc"
