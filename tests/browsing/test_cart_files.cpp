#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineTest.h"
#include "support/Files.h"
#include "support/SampleCatalogue.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

namespace {

constexpr qint16 ScissorsId = 2;
constexpr qint16 SetId = 482;

const QString Own = QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|7");

const QStringList SetLines{QStringLiteral("TS 90/100|Dressing set|Müller: Nr 4|1"),
                           QStringLiteral("AB 40/145|Dressing forceps, straight|1"),
                           QStringLiteral("AB 42/145|Tissue forceps, straight, 1x2 teeth|1"),
                           QStringLiteral("AB 10/146|Operating scissors, straight, sharp/blunt|1"),
                           QStringLiteral("AB 81/130|Bulb-headed probe, malleable|1")};

} // namespace

/// The cart saved to a file and loaded from one, on the cart's tab.
class TestCartFiles final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        Start(QStringLiteral("English"));
        catalogue->GetController().AddProductToCart(ScissorsId, 7, QString());
    }
    void cleanup()
    {
        cart.reset();
        catalogue.reset();
    }

    void testSavedCartIsLoadedOnAnotherMachine()
    {
        const QString file = PathOf("order.csv");
        catalogue->GetController().AddProductToCart(SetId, 1, QString());
        QVERIFY(cart->Open());
        QVERIFY(WaitUntil([&] { return cart->Lines().size() == 7; }));
        // The edit is not left before the click.
        QVERIFY(cart->Page().TypeInto(QStringLiteral("#cat_1"), QStringLiteral("Müller: Nr 4")));
        QVERIFY(Answer("btnSave", {ChooseFile(PathOf("order"))}));
        const QStringList lines = cart->Lines();
        QCOMPARE(lines.mid(0, 6), QStringList{Own} + SetLines);
        QVERIFY(BytesOf(file).startsWith(
            "2;AB 10/116;Operating scissors, straight, sharp/blunt;7;\r\n\r\n"
            "482;TS 90/100;Dressing set;1;M\xFCller: Nr 4\r\n"
            "220;AB 40/145;Dressing forceps, straight;1;\r\n"));
        QVERIFY(!QFile::exists(PathOf("order")));

        Start(QStringLiteral("French"));
        QVERIFY(cart->Open());
        QVERIFY(Answer("btnLoad", {ChooseFile(file)}));
        QVERIFY(cart->WaitForLines(lines));
        const QString again = PathOf("Again.CSV");
        QVERIFY(Answer("btnSave", {ChooseFile(again)}));
        QCOMPARE(BytesOf(again), BytesOf(file));
    }

    void testReplacingAFileIsAskedForTheNameWritten()
    {
        const QString file = PathOf("order.csv");
        WriteBytes(file, "before");
        QVERIFY(cart->Open());
        QVERIFY(cart->WaitForLines({Own}));
        QString question;
        QVERIFY(Answer("btnSave", {ChooseFile(PathOf("order")),
                                   PressButton(QMessageBox::No, &question), Cancel()}));
        QVERIFY(question.contains(QLatin1String("order.csv")));
        QCOMPARE(BytesOf(file), QByteArray("before"));
        QVERIFY(cart->WaitForLines({Own}));
    }

    void testBadLineIsNamedAndWhatCameBeforeIsKept()
    {
        const QString file = PathOf("bad.csv");
        WriteBytes(file, "1;A-1;Clamp;2;\r\n\r\n2;A-2;Probe;3;Tray\r\n\r\n5;A-3;Hook;2\r\n\r\n"
                         "6;A-4;Never read;1;\r\n\r\n");
        QVERIFY(cart->Open());
        QVERIFY(cart->WaitForLines({Own}));
        QString message;
        QVERIFY(Answer("btnLoad", {ChooseFile(file), PressButton(QMessageBox::Ok, &message)}));
        QVERIFY2(message.contains(file), qPrintable(message));
        QVERIFY2(message.contains(QRegularExpression(QStringLiteral("\\b[Ll]ine 5\\b"))),
                 qPrintable(message));
        QVERIFY(cart->WaitForLines(
            {QStringLiteral("A-1|Clamp|2"), QStringLiteral("A-2|Probe|Tray|3")}));
        QVERIFY(cart->Button("btnSendOrder")->isEnabled());
    }

    void testAmountsOfAFileAreShownWhole_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("smallest window") << QSize(800, 560);
        QTest::newRow("usual window") << QSize(1280, 800);
    }

    void testAmountsOfAFileAreShownWhole()
    {
        QFETCH(const QSize, size);
        const QString file = PathOf("large.csv");
        WriteBytes(file, "1;A-1;Clamp;1200;\r\n\r\n2;A-2;Probe;32767;\r\n\r\n"
                         "3;A-3;Hook;-32768;\r\n\r\n");
        catalogue->Window().resize(size);
        QVERIFY(cart->Open());
        QVERIFY(Answer("btnLoad", {ChooseFile(file)}));
        QVERIFY(
            cart->WaitForLines({QStringLiteral("A-1|Clamp|1200"), QStringLiteral("A-2|Probe|32767"),
                                QStringLiteral("A-3|Hook|-32768")}));
        QCOMPARE(cart->Page().Evaluate(QStringLiteral(
                     "[...document.querySelectorAll('input.amountField')]"
                     ".filter(field => field.scrollWidth > field.clientWidth).length")),
                 QVariant(0));
        QCOMPARE(cart->Page().Evaluate(
                     QStringLiteral("document.documentElement.scrollWidth <= innerWidth")),
                 QVariant(true));
    }

    void testCancelledLoadKeepsTheCart()
    {
        QVERIFY(cart->Open());
        QVERIFY(cart->WaitForLines({Own}));
        // The page comes anew.
        QVERIFY(cart->Page().WaitForPageAfter(QStringLiteral("shopping_cart.html?action=doLoad"),
                                              [&] { QVERIFY(Answer("btnLoad", {Cancel()})); }));
        QVERIFY(cart->WaitForLines({Own}));
    }

    void testTitleWithMarkupLosesNothing()
    {
        const QString file = PathOf("markup.csv");
        const QByteArray text = "1;A-1;<b>Bold</b> & <i>slanted;2;\r\n\r\n"
                                "2;A-2;<script>window.status='delItem:0'</script>Hook;3;\r\n\r\n"
                                "\r\n";
        WriteBytes(file, text);
        QVERIFY(cart->Open());
        QVERIFY(Answer("btnLoad", {ChooseFile(file)}));
        QVERIFY(cart->WaitForLines(
            {QStringLiteral("A-1|Bold & slanted|2"), QStringLiteral("A-2|Hook|3")}));
        const QString again = PathOf("again.csv");
        QVERIFY(Answer("btnSave", {ChooseFile(again)}));
        QCOMPARE(BytesOf(again), text);
    }

    void testEmptyingTheCartIsAskedFirst()
    {
        QVERIFY(cart->Open());
        QVERIFY(cart->WaitForLines({Own}));
        QString question;
        QString title;
        QVERIFY(Answer("btnDelete", {PressButton(QMessageBox::No, &question, &title)}));
        QCOMPARE(question, QStringLiteral("Do you really want to empty the whole shopping cart?"));
        QCOMPARE(title, QStringLiteral("Exit?"));
        QVERIFY(cart->WaitForLines({Own}));
        QVERIFY(Answer("btnDelete", {PressButton(QMessageBox::Yes)}));
        QVERIFY(cart->WaitForText(QStringLiteral("Your shopping cart is empty.")));
        QVERIFY(!cart->Button("btnDelete")->isEnabled());
    }

private:
    QString PathOf(const char *name) const { return folder->filePath(QLatin1String(name)); }

    void Start(const QString &language)
    {
        cart.reset();
        catalogue.reset();
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue, language);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        cart.emplace(*catalogue);
    }

    bool Answer(const char *button, const std::vector<CatalogueWindow::DialogAnswer> &answers)
    {
        return CatalogueWindow::AnswerDialogs([&] { cart->Press(button); }, answers);
    }

    std::optional<QTemporaryDir> folder;
    std::unique_ptr<CatalogueWindow> catalogue;
    std::optional<CartTab> cart;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestCartFiles>(argc, argv);
}
#include "test_cart_files.moc"
