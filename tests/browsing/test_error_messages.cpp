#include "browser/WebBrowser.h"
#include "cart/model/clsShoppingCart.h"
#include "cart/pane/ShoppingCart.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineTest.h"
#include "support/Files.h"
#include "support/PageUser.h"
#include "support/SampleCatalogue.h"
#include "support/WaitUntil.h"
#include "ui/main/MainMenu.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

namespace {

constexpr qint16 DressingSet = 482;

/// The text of the key in the window's language, the values in the places of its marks.
QString Text(CatalogueWindow &catalogue, const char *key, const QStringList &values)
{
    QString text = catalogue.GetController().GetText(QLatin1String(key));
    for (qsizetype i = 0; i < values.size(); ++i)
        text.replace(QStringLiteral("{%1}").arg(i), values[i]);
    return text;
}

} // namespace

/// What goes wrong with the user's files and printer is told in his language.
class TestErrorMessages final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testPriceListThatIsEmpty_data() { AddLanguages(); }

    void testPriceListThatIsEmpty()
    {
        const QString list = File("prices.txt", "");
        QFETCH(const QString, language);
        CatalogueWindow catalogue(SampleCatalogue, language);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const MainMenu &menus = *catalogue.Window().menus;
        QString message;
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { ChooseFromMenu(catalogue, menus.mFile, menus.mLoadPriceList); },
            {ChooseFile(list), PressButton(QMessageBox::Ok, &message)}));
        QFETCH(const QString, word);
        QVERIFY2(message.contains(word), qPrintable(message));
        QCOMPARE(message, Text(catalogue, "errorPriceList", {list}));
    }

    void testCartFileWithAFaultyLine_data() { AddLanguages(); }

    void testCartFileWithAFaultyLine()
    {
        const QString file = File("bad.csv", "1;A-1;Clamp;2;\r\n\r\n5;A-3;Hook;2\r\n\r\n");
        QFETCH(const QString, language);
        CatalogueWindow catalogue(SampleCatalogue, language);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QString message;
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { cart.Press("btnLoad"); },
            {ChooseFile(file), PressButton(QMessageBox::Ok, &message)}));
        QFETCH(const QString, cartWord);
        QVERIFY2(message.contains(cartWord), qPrintable(message));
        QCOMPARE(message, Text(catalogue, "errorCartFields",
                               {QStringLiteral("3"), file, QStringLiteral("5;A-3;Hook;2")}));
        QVERIFY(cart.WaitForLines({QStringLiteral("A-1|Clamp|2")}));
    }

    void testLastMemberOfASetStays_data() { AddLanguages(); }

    void testLastMemberOfASetStays()
    {
        QFETCH(const QString, language);
        CatalogueWindow catalogue(SampleCatalogue, language);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        catalogue.GetController().AddProductToCart(DressingSet, 1, QString());
        clsShoppingCart &content = catalogue.GetController().GetShoppingCart();
        const ShoppingCartItemList &members = *content.Entries().At(0)->SetItems;
        QCOMPARE(members.LowerBound(), 1);
        while (members.UpperBound() > 1)
            content.DeleteItem(0, 1);
        const QString before = content.Serialize();
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(WaitUntil([&] { return cart.Lines().size() == 2; }));
        const QStringList lines = cart.Lines();
        QString message;
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { QVERIFY(cart.Page().Click(QStringLiteral("#contListRow0_1 a"))); },
            {PressButton(QMessageBox::Ok), PressButton(QMessageBox::Ok, &message)}));
        QFETCH(const QString, setWord);
        QVERIFY2(message.contains(setWord), qPrintable(message));
        QCOMPARE(message, Text(catalogue, "errorCartLastMember", {}));
        QCOMPARE(content.Serialize(), before);
        // The page is there again and shows both.
        QVERIFY(cart.WaitForLines(lines));
    }

    void testPageThatCannotBeShown()
    {
        CatalogueWindow catalogue(SampleCatalogue, QStringLiteral("German"));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        WebBrowser &page = *catalogue.Window().wbMain;
        ShoppingCart &cart = *catalogue.Window().ucShoppingCart;
        CartTab tab(catalogue);
        QVERIFY(tab.Open());
        const QString missing =
            catalogue.GetController().GetContentBaseUrl() + QStringLiteral("/content/missing.html");
        for (WebBrowser *const browser : {&page, cart.Browser()}) {
            browser->Navigate(missing);
            QVERIFY(WaitUntil([browser] { return !browser->FailedAddress().isEmpty(); }));
            QVERIFY(WaitUntil([browser] {
                return PageUser(*browser)
                    .Evaluate(QStringLiteral("document.body.innerText"))
                    .toString()
                    .contains(QStringLiteral("Diese Seite kann nicht gezeigt werden"));
            }));
        }
    }

    void testCartThatCannotBeSaved()
    {
        const QString file = folder.filePath(QStringLiteral("taken.csv"));
        QVERIFY(QDir().mkdir(file));
        CatalogueWindow catalogue(SampleCatalogue, QStringLiteral("German"));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        catalogue.GetController().AddProductToCart(2, 7, QString());
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QString message;
        // The name is completed to that of the folder only once the dialog has closed.
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { cart.Press("btnSave"); }, {ChooseFile(folder.filePath(QStringLiteral("taken"))),
                                             PressButton(QMessageBox::Ok, &message)}));
        QVERIFY2(message.contains(file), qPrintable(message));
        QVERIFY2(message.startsWith(catalogue.GetController()
                                        .GetText(QStringLiteral("errorCartSave"))
                                        .section(u'{', 0, 0)),
                 qPrintable(message));
        QVERIFY2(!message.contains(u'{'), qPrintable(message));
    }

    void testPageThatCannotBePrinted()
    {
        CatalogueWindow catalogue(SampleCatalogue, QStringLiteral("Italian"));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const MainMenu &menus = *catalogue.Window().menus;
        QDir place(folder.filePath(QStringLiteral("stick")));
        QVERIFY(place.mkpath(QStringLiteral(".")));
        QString message;
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { ChooseFromMenu(catalogue, menus.mFile, menus.mPrint); },
            {[&](QWidget *dialog) {
                 PrintInto(place.filePath(QStringLiteral("page.pdf")))(dialog);
                 // The dialog has tried the file; then the stick is pulled out.
                 QVERIFY(place.removeRecursively());
             },
             PressButton(QMessageBox::Ok, &message)}));
        QCOMPARE(message, Text(catalogue, "errorPrint", {}));
        QVERIFY(message.contains(QLatin1String("stampante")));
    }

private:
    static void AddLanguages()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("cartWord");
        QTest::addColumn<QString>("setWord");
        const auto add = [](const char *language, const char *word, const char *cartWord,
                            const char *setWord) {
            QTest::newRow(language) << QString::fromLatin1(language) << QString::fromUtf8(word)
                                    << QString::fromUtf8(cartWord) << QString::fromUtf8(setWord);
        };
        add("German", "Preisliste", "Warenkorb", "eines Sets");
        add("English", "price list", "shopping cart", "of a set");
        add("French", "liste de prix", "panier", "d’un set");
        add("Spanish", "lista de precios", "carrito", "de un set");
        add("Italian", "listino prezzi", "carrello", "di un set");
    }

    QString File(const char *name, const QByteArray &bytes) const
    {
        const QString path = folder.filePath(QLatin1String(name));
        WriteBytes(path, bytes);
        return path;
    }

    QTemporaryDir folder;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestErrorMessages>(argc, argv);
}
#include "test_error_messages.moc"
