#include "browser/WebBrowser.h"
#include "cart/pane/ShoppingCart.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineTest.h"
#include "support/PdfFiles.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/MainMenu.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

namespace {

constexpr qint16 ScissorsId = 2;
constexpr qint16 OtherScissorsId = 3;

const QString Scissors =
    QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|OR 2|7");
const QString OtherScissors =
    QStringLiteral("AB 10/117|Operating scissors, straight, blunt/blunt|1");

void Put(CatalogueWindow &catalogue)
{
    catalogue.GetController().AddProductToCart(ScissorsId, 7, QStringLiteral("OR 2"));
}

} // namespace

/// The tab of the cart among the others.
class TestCartTab final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testShowsWhatWasAddedWheneverItBecomesCurrent()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForText(QStringLiteral("Your shopping cart is empty.")));

        catalogue.Window().GoHome();
        QVERIFY(!cart.IsCurrent());
        Put(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForLines({Scissors}));

        catalogue.Window().GoHome();
        catalogue.GetController().AddProductToCart(OtherScissorsId, 1, QString());
        catalogue.Window().ShowCartTab();
        QVERIFY(cart.IsCurrent());
        QVERIFY(cart.WaitForLines({Scissors, OtherScissors}));
    }

    void testPageInFrontDoesNotWaitForTheCarts()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const WebBrowser *const browser = catalogue.Window().ucShoppingCart->Browser();
        QCOMPARE(browser->Address(), QString());
        ClickOn(catalogue.Window().header->btnLang[0]);
        QVERIFY(catalogue.WaitFor(QStringLiteral("welcome.html"),
                                  QStringLiteral("document.getElementById('captionHead').innerText"
                                                 " === 'Willkommen bei Tesk Instruments'")));
        QCOMPARE(browser->Address(), QString());

        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForText(QStringLiteral("Ihr Warenkorb ist leer.")));
        // In front it changes with the rest.
        ClickOn(catalogue.Window().header->btnLang[1]);
        QVERIFY(cart.WaitForText(QStringLiteral("Your shopping cart is empty.")));
    }

    void testShowsAtOnceWhatWasAskedForBeforeItBecameCurrent()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForText(QStringLiteral("Your shopping cart is empty.")));
        // The report of a page whose user has gone on to the cart.
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { catalogue.Evaluate(QStringLiteral("window.status = 'shoppingCart:3'")); },
            {[](QWidget *dialog) { ClickButton(dialog, "OKButton"); },
             PressButton(QMessageBox::Ok)}));
        QVERIFY(cart.WaitForLines({OtherScissors}));
    }

    void testClickOnTheTabLeavesNoButtonWithTheFocus()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(qobject_cast<QAbstractButton *>(QApplication::focusWidget()) == nullptr);
    }

    void testLineLeadsToItsProductAndBackOn_data()
    {
        QTest::addColumn<QString>("cell");
        QTest::newRow("number") << QStringLiteral("td:nth-child(2)");
        QTest::newRow("title") << QStringLiteral("td:nth-child(3)");
    }

    void testLineLeadsToItsProductAndBackOn()
    {
        QFETCH(QString, cell);
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        QVERIFY(WaitForFillAfter(catalogue, [&] { ClickInTree(catalogue, leaf); }));
        Put(catalogue);
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForLines({Scissors}));

        QVERIFY(WaitForFillAfter(catalogue, [&] {
            QVERIFY(cart.Page().Click(QStringLiteral("#contListRow0 ") + cell));
        }));
        QVERIFY(!cart.IsCurrent());
        QVERIFY(catalogue.Window().wbMain->Address().endsWith(
            QLatin1String("/content/product_details.html?id=2")));
        QVERIFY(InnerText(catalogue, QStringLiteral("productDetails"))
                    .contains(QLatin1String("AB 10/116")));
        for (const char *button : {"btnFirst", "btnPrevious", "btnNext", "btnLast"})
            QVERIFY2(!ButtonOfScroller(catalogue, button)->isEnabled(), button);
        // The pane has gone back to the cart by itself.
        QVERIFY(cart.WaitForLines({Scissors}));

        QVERIFY(
            WaitForFillAfter(catalogue, [&] { ClickOn(ButtonOfScroller(catalogue, "btnBack")); }));
        QVERIFY(catalogue.Window().wbMain->Address().endsWith(
            QLatin1String("product_list.html?firstItem=1&id=") + leaf->tag));
    }

    void testAnotherLanguageRelabelsThePane()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        Put(catalogue);
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForLines({Scissors}));
        QCOMPARE(cart.Button("btnSendOrder")->text(), QStringLiteral("Send or&der"));
        const auto captions = [&] {
            return cart.Page()
                .Evaluate(QStringLiteral("[...document.querySelectorAll('.prodCaption')]"
                                         ".map(cell => cell.innerText.trim())"))
                .toStringList();
        };
        QCOMPARE(captions(),
                 QStringList({QStringLiteral("Article no."), QStringLiteral("Description"),
                              QStringLiteral("Your category"), QStringLiteral("Amount")}));
        // An edit that is not left yet survives the change.
        QVERIFY(cart.Page().TypeInto(QStringLiteral("#fld_0"), QStringLiteral("8")));
        ClickOn(catalogue.Window().header->btnLang[0]);
        QVERIFY(WaitUntil([&] {
            return captions() ==
                   QStringList({QStringLiteral("Artikelnr."), QStringLiteral("Beschreibung"),
                                QStringLiteral("Ihre Kategorie"), QStringLiteral("Menge")});
        }));
        QCOMPARE(cart.Button("btnSendOrder")->text(), QStringLiteral("&Bestellung senden"));
        QCOMPARE(catalogue.Window().tabMain->tabText(frmCatalog::CartTab),
                 QStringLiteral("Warenkorb"));
        // A line keeps the name under which it was added.
        QVERIFY(cart.WaitForLines(
            {QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|OR 2|8")}));
    }

    void testLineIsDeletedAfterAQuestion()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        Put(catalogue);
        catalogue.GetController().AddProductToCart(OtherScissorsId, 1, QString());
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForLines({Scissors, OtherScissors}));
        QString question;
        const auto clickDelete = [&] {
            QVERIFY(cart.Page().Click(QStringLiteral("#contListRow0 a[href*='delItem']")));
        };
        QVERIFY(CatalogueWindow::AnswerDialogs(clickDelete,
                                               {PressButton(QMessageBox::Cancel, &question)}));
        QCOMPARE(question,
                 QStringLiteral("Do you really want to remove AB 10/116 from the shopping cart?"));
        QVERIFY(cart.WaitForLines({Scissors, OtherScissors}));
        QVERIFY(CatalogueWindow::AnswerDialogs(clickDelete, {PressButton(QMessageBox::Ok)}));
        QVERIFY(cart.WaitForLines({OtherScissors}));
    }

    void testLinesAreDeletedByKeysOneAfterTheOther()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        constexpr int lines = 8;
        for (int line = 0; line < lines; ++line)
            Put(catalogue);
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        const QString focusLink = QStringLiteral("#contListRow0 a[href*='delItem']");
        QVERIFY(cart.Page().WaitFor(
            QStringLiteral("shopping_cart.html"),
            QStringLiteral("document.querySelector(\"%1\")?.focus() === undefined &&"
                           " document.activeElement.matches(\"%1\")")
                .arg(focusLink)));
        for (int left = lines - 1; left >= 0; --left) {
            QVERIFY(CatalogueWindow::AnswerDialogs(
                [&] { cart.Page().PressKey(Qt::Key_Return); },
                {[](QWidget *dialog) { PressKey(dialog, Qt::Key_Return); }}));
            // The line that takes the place of the deleted one gets the focus.
            QVERIFY(cart.Page().WaitFor(
                QStringLiteral("shopping_cart.html"),
                QStringLiteral("document.querySelectorAll('#list a[title]').length == %1 &&"
                               " (%1 == 0 || document.activeElement.matches(\"%2\"))")
                    .arg(QString::number(left), focusLink)));
        }
        QCOMPARE(catalogue.GetController().GetShoppingCart().Count(), qint16{0});
    }

    void testPrintingTheCart_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("button") << 0;
        QTest::newRow("operation of the window") << 1;
        QTest::newRow("key") << 2;
        QTest::newRow("menu") << 3;
    }

    void testPrintingTheCart()
    {
        QFETCH(int, way);
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        Put(catalogue);
        CartTab cart(catalogue);
        frmCatalog &window = catalogue.Window();
        if (way != 1) {
            QVERIFY(cart.Open());
            QVERIFY(cart.WaitForLines({Scissors}));
            // Not left before it is printed.
            QVERIFY(cart.Page().TypeInto(QStringLiteral("#cat_0"), QStringLiteral("Ward 9")));
        }
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("cart.pdf"));
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] {
                switch (way) {
                case 0:
                    cart.Press("btnPrint");
                    break;
                case 1:
                    window.PrintCart();
                    break;
                case 2:
                    PressKey(&window, Qt::Key_P, Qt::ControlModifier);
                    break;
                default:
                    ChooseFromMenu(catalogue, window.menus->mFile, window.menus->mPrint);
                }
            },
            {PrintInto(file)}));
        QVERIFY(cart.IsCurrent());
        QVERIFY(WaitUntil([&] { return QFile::exists(file); }));
        const QString paper = TextOfPdf(file);
        const QString category = way == 1 ? QStringLiteral("OR 2") : QStringLiteral("Ward 9");
        QVERIFY2(paper.contains(QRegularExpression(
                     QStringLiteral("AB 10/116\\s+Operating scissors, straight, sharp/blunt\\s+%1"
                                    "\\s+7\\b")
                         .arg(category))),
                 qPrintable(paper));
        QVERIFY(paper.contains(QLatin1String("Shopping cart")));
    }

    void testCancelledPrintLeavesTheCartUsable()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        Put(catalogue);
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForLines({Scissors}));
        for (int round = 0; round < 2; ++round)
            QVERIFY(CatalogueWindow::AnswerDialogs([&] { cart.Press("btnPrint"); }, {Cancel()}));
        QVERIFY(cart.Page().TypeInto(QStringLiteral("#fld_0"), QStringLiteral("9")));
        cart.Page().PressKey(Qt::Key_Tab);
        QVERIFY(WaitUntil([&] {
            return catalogue.GetController().GetShoppingCart().Entries().At(0)->Amount == 9;
        }));
    }

    void testArticlesAddedByTheWindowsOperation()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        CartTab cart(catalogue);
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] { catalogue.Window().ManualAddToCart(); }, {[&](QWidget *dialog) {
                Fill(dialog, "tbArtNrTesk9", QStringLiteral("AB 10/117"));
                ClickButton(dialog, "btnOK");
            }}));
        QVERIFY(cart.IsCurrent());
        QVERIFY(cart.WaitForLines({OtherScissors}));
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestCartTab>(argc, argv);
}
#include "test_cart_tab.moc"
