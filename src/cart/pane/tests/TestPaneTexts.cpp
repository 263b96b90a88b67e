#include "PaneWindow.h"
#include "browser/WebBrowser.h"
#include "support/EngineTest.h"
#include "support/Files.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

using namespace Tesk;

namespace {

const QString CartAfterChange = QStringLiteral("/content/shopping_cart.html?action=doLoad");
const QString Cart = QStringLiteral("/content/shopping_cart.html");

} // namespace

/// What the texts of a cart may hold: it is shown as it is, it runs nothing, and the line can be
/// used like any other.
class TestPaneTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init() { pane = std::make_unique<PaneWindow>(); }
    void cleanup() { pane.reset(); }

    void testAnyCategoryComesBack_data();
    void testAnyCategoryComesBack();
    void testCategoryGoesAsTypedFromTheDialogToTheOrderForm();
    void testClickOnATitleShowsTheProduct_data();
    void testClickOnATitleShowsTheProduct();
    void testMarkupInTextsRunsNoCommand_data();
    void testMarkupInTextsRunsNoCommand();
    void testOrderFormRunsNoCommandOfATitle();
    void testMarkupOfATitleTakesEffect();
    void testLineOfAnyArticleNumberIsDeleted_data();
    void testLineOfAnyArticleNumberIsDeleted();

private:
    bool IsHarmless();
    bool WaitForPicturesThatFail();

    std::unique_ptr<PaneWindow> pane;
};

void TestPaneTexts::testAnyCategoryComesBack_data()
{
    QTest::addColumn<QString>("category");
    for (const char *const category : {"3\" & <b>'\u00FC", "\"\"", "<OR>", "</td></tr>", "<!-- -->",
                                       "OR\\2", "&lt; &copy &#65; R&D", "a < b > c"})
        QTest::newRow(category) << QString::fromUtf8(category);
}

// Typed, on the page written anew, and on the order form.
void TestPaneTexts::testAnyCategoryComesBack()
{
    QFETCH(const QString, category);
    pane->Add(PaneWindow::Scissors, 3);
    QVERIFY(pane->ShowCart());
    QVERIFY(pane->Type(QStringLiteral("#cat_0"), category));
    pane->Press(Qt::Key_Tab);
    QVERIFY(WaitUntil([&] { return pane->Cart().Entries().At(0)->AltCategory == category; }));
    QVERIFY(pane->ShowCart());
    QCOMPARE(pane->Evaluate(QStringLiteral("document.getElementById('cat_0').value")),
             QVariant(category));
    QVERIFY(pane->WaitForPageAfter([&] { pane->Pane().ExtContactCall(false); },
                                   QStringLiteral("/content/order_form.html")));
    QCOMPARE(pane->Evaluate(QStringLiteral(
                 "document.querySelector('#contListRow0 td:nth-last-child(2)').textContent")),
             QVariant(category));
}

// Typed in the add dialog, shown, edited in the page, saved, loaded, and shown on the order form.
void TestPaneTexts::testCategoryGoesAsTypedFromTheDialogToTheOrderForm()
{
    const QString typed = QStringLiteral("3\" 'left' & <b>");
    const QString edited = QStringLiteral("\"4\" & right");
    const QString shown = QStringLiteral("document.getElementById('cat_0')?.value");
    const QString path = pane->PathOf(QStringLiteral("order.csv"));
    QVERIFY(pane->ShowCart());
    DialogDriver driver({[&](QDialog &dialog) {
                             const auto field = [&dialog](const char *name) {
                                 return dialog.findChild<QLineEdit *>(QLatin1String(name));
                             };
                             TypeInto(field("tbArtNrTesk0"), QStringLiteral("AB 10/115"));
                             TypeInto(field("tbCatNr0"), typed);
                             PressKey(&dialog, Qt::Key_Return);
                         },
                         Choose(path), Choose(path)});
    QVERIFY(pane->WaitForPageAfter([&] { ClickOn(pane->Button("btnManual")); }, Cart));
    QCOMPARE(pane->Evaluate(shown), QVariant(typed));
    QVERIFY(pane->Type(QStringLiteral("#cat_0"), edited));
    ClickOn(pane->Button("btnSave"));
    QVERIFY(WaitUntil([&] { return QFile::exists(path); }));
    QVERIFY(BytesOf(path).contains(";1;\"4\" & right\r\n"));
    pane->Cart().Clear();
    QVERIFY(pane->WaitForPageAfter([&] { ClickOn(pane->Button("btnLoad")); }, CartAfterChange));
    QCOMPARE(pane->Evaluate(shown), QVariant(edited));
    QVERIFY(pane->WaitForPageAfter([&] { pane->Pane().ExtContactCall(false); },
                                   QStringLiteral("/content/order_form.html")));
    QCOMPARE(pane->Evaluate(QStringLiteral(
                 "document.querySelector('#contListRow0 td:nth-last-child(2)').textContent")),
             QVariant(edited));
}

void TestPaneTexts::testClickOnATitleShowsTheProduct_data()
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

void TestPaneTexts::testClickOnATitleShowsTheProduct()
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

/// What could act is not in the page at all; it may not have got round to it yet.
bool TestPaneTexts::IsHarmless()
{
    const QString inside = QStringLiteral(":is(#caption, #summary, #list) ");
    return pane
        ->Evaluate(
            QStringLiteral("document.querySelector('%1:is(script, style, meta, iframe, svg,"
                           " details, [onerror], [onload], [ontoggle], [autofocus])') === null")
                .arg(inside))
        .toBool();
}

/// Whether the page has been told of all pictures that could not be shown so far.
bool TestPaneTexts::WaitForPicturesThatFail()
{
    pane->Evaluate(QStringLiteral("(() => { const picture = new Image();"
                                  " picture.onerror = () => { window.hasFailed = true; };"
                                  " picture.src = 'none.gif'; })()"));
    return pane->WaitFor(QStringLiteral("window.hasFailed")) && pane->WaitForReports();
}

// What a file of somebody else may hold, in each of a line's texts.
void TestPaneTexts::testMarkupInTextsRunsNoCommand_data()
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

void TestPaneTexts::testMarkupInTextsRunsNoCommand()
{
    QFETCH(const QString, text);
    pane->Add(PaneWindow::Scissors, 1);
    clsShoppingCartItem &item = *pane->Cart().Entries().At(0);
    item.Id = item.ArtNr = item.Title = item.AltCategory = text;
    const QStringList before = pane->Lines();
    QVERIFY(pane->ShowCart());
    const QSignalSpy pages(pane->Pane().Browser(), &WebBrowser::DocumentComplete);
    QVERIFY(WaitForPicturesThatFail());
    QVERIFY(IsHarmless());
    QCOMPARE(pane->Lines(), before);
    QCOMPARE(pages.count(), 0);
}

void TestPaneTexts::testOrderFormRunsNoCommandOfATitle()
{
    pane->Add(PaneWindow::Scissors, 1);
    const QString hostile = QStringLiteral("<img src=x onerror=\"window.status='delItem:0'\">");
    pane->Cart().Entries().At(0)->Title = hostile;
    pane->lastContact = {hostile, hostile};
    QVERIFY(pane->WaitForPageAfter([&] { pane->Pane().ExtContactCall(false); },
                                   QStringLiteral("/content/order_form.html")));
    QVERIFY(WaitForPicturesThatFail());
    QVERIFY(IsHarmless());
    QCOMPARE(pane->Cart().Count(), qint16{1});
}

void TestPaneTexts::testMarkupOfATitleTakesEffect()
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

void TestPaneTexts::testLineOfAnyArticleNumberIsDeleted_data()
{
    QTest::addColumn<QString>("artNr");
    const auto row = [](const char *name, const char *artNr) {
        QTest::newRow(name) << QString::fromUtf8(artNr);
    };
    row("apostrophe", "AB 1'2");
    row("quotation marks", "AB \"1\"");
    row("nothing but a quotation mark", "\"");
    row("letters of the code page", "\u00DC\u20AC 1");
    row("markup", "<b>AB</b> <1>");
    row("a place", "{0}");
    row("end of a line", "AB\u2028"
                         "1");
    row("percent signs", "50%27)+%41");
    row("backslash", "AB\\1");
    row("a command", "');delItem('0');('");
}

// The question names the number as it is, and the line goes only when the user says yes.
void TestPaneTexts::testLineOfAnyArticleNumberIsDeleted()
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

int main(int argc, char **argv)
{
    return RunEngineTest<TestPaneTexts>(argc, argv);
}

#include "TestPaneTexts.moc"
