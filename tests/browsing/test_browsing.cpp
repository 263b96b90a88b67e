#include "base/Errors.h"
#include "browser/Engine.h"
#include "browser/WebBrowser.h"
#include "cart/dialogs/frmShoppingCartAmount.h"
#include "cart/model/clsShoppingCart.h"
#include "support/CatalogueWindow.h"
#include "support/WaitUntil.h"
#include "ui/main/CatalogApplication.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/MainMenu.h"
#include "ui/main/PageProtocol.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

using namespace Tesk;

namespace {

const QString SampleCatalogue = QStringLiteral(APPLICATION_DIR);

/// The first leaf of the tree whose products satisfy the condition.
template <typename Condition>
const CategoryNode *FindLeaf(CatalogueWindow &catalogue, Condition condition)
{
    for (const auto &node : catalogue.Window().Tree().Nodes()) {
        if (node->HasChildren())
            continue;
        if (condition(catalogue.GetController().Queries().QueryProductsOfCategory(node->tag)))
            return node.get();
    }
    return nullptr;
}

const CategoryNode *FindLongLeaf(CatalogueWindow &catalogue)
{
    return FindLeaf(catalogue, [](const ResultTable &rows) { return rows.UpperRow() > 60; });
}

/// The row number of the first set in the rows, or 0.
int FirstSet(const ResultTable &rows)
{
    for (int row = 1; row <= rows.UpperRow(); ++row) {
        if (GetField(QStringLiteral("p.isSet"), rows, row) == QLatin1String("True"))
            return row;
    }
    return 0;
}

void ClickInTree(CatalogueWindow &catalogue, const CategoryNode *node)
{
    frmCatalog &window = catalogue.Window();
    window.tabMain->setCurrentIndex(frmCatalog::CategoriesTab);
    CategoryTreeView *const tree = window.TreeViewCategories;
    tree->ExpandNodePath(node->parent);
    tree->scrollToItem(tree->ItemOf(node));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(tree->ItemOf(node)).center());
}

QString InnerText(CatalogueWindow &catalogue, const QString &elementId)
{
    return catalogue
        .Evaluate(QStringLiteral("document.getElementById('%1')?.innerText").arg(elementId))
        .toString();
}

int RowCount(CatalogueWindow &catalogue)
{
    return catalogue.Evaluate(QStringLiteral("document.querySelectorAll('tr.contListRow').length"))
        .toInt();
}

QPushButton *Button(QWidget *dialog, QMessageBox::StandardButton which)
{
    auto *const box = qobject_cast<QMessageBox *>(dialog);
    return box == nullptr ? nullptr : qobject_cast<QPushButton *>(box->button(which));
}

} // namespace

/// The program on the built sample catalogue, driven with mouse and keyboard in the real engine.
class TestBrowsing final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testStartShowsTheFilledWelcomePage()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("content/welcome.html")));
        const LanguageSupport &languages = catalogue.GetController().Languages();
        QCOMPARE(InnerText(catalogue, QStringLiteral("captionRight")).trimmed(),
                 languages.GetText(QStringLiteral("ucCategoriesCaption")));
        int listed = 0;
        for (const auto &node : catalogue.Window().Tree().Nodes()) {
            if (node->parent == nullptr || node->parent->parent == nullptr)
                ++listed;
        }
        QCOMPARE(catalogue.Evaluate(QStringLiteral(
                     "document.querySelectorAll('#list .navHeadline, #list a').length")),
                 QVariant(listed));
        QVERIFY(!catalogue.Window().History().HasMoreEntries());
    }

    void testClickOnACategoryWithChildrenOpensTheCategoryPage()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const top = catalogue.Window().Tree().Nodes().front().get();
        ClickInTree(catalogue, top);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("category_list.html?id=") + top->tag));
        QCOMPARE(InnerText(catalogue, QStringLiteral("caption")).trimmed(), top->text);
        QCOMPARE(catalogue.Window().tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QCOMPARE(catalogue.Evaluate(QStringLiteral("document.querySelectorAll('#list a').length")),
                 QVariant(int(top->children.size())));
    }

    void testClickOnALeafOpensTheListAtItem1()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        QVERIFY(leaf != nullptr);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html?firstItem=1&id=") +
                                            leaf->tag));
        QCOMPARE(RowCount(catalogue), 20);
        QVERIFY(catalogue.Evaluate(QStringLiteral("!!document.getElementById('contListRow1')"))
                    .toBool());
    }

    void testPagerLeadsToTheSecondPage()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        QVERIFY(leaf != nullptr);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("firstItem=1&")));
        QVERIFY(catalogue.Click(QStringLiteral("a[href*='firstItem=21&']")));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("firstItem=21&")));
        QCOMPARE(RowCount(catalogue), 20);
        QVERIFY(catalogue.Evaluate(QStringLiteral("!!document.getElementById('contListRow40')"))
                    .toBool());
    }

    void testClickOnARowOpensTheDetails()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        QVERIFY(leaf != nullptr);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("firstItem=1&")));
        const ResultTable rows = catalogue.Window().Protocol().ProductRows();
        QVERIFY(catalogue.Click(QStringLiteral("#contListRow2 td:nth-child(2)")));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_details.html?id=") +
                                            rows.Text(2, 0)));
        QCOMPARE(InnerText(catalogue, QStringLiteral("productTitle")).trimmed(),
                 GetField(QStringLiteral("l.name"), rows, 2));
        QVERIFY(InnerText(catalogue, QStringLiteral("productDetails"))
                    .contains(GetField(QStringLiteral("p.artNr"), rows, 2)));
        QVERIFY(
            catalogue.WaitFor(QStringLiteral("product_details"),
                              QStringLiteral("[...document.querySelectorAll('#productImages img')]"
                                             ".every(i => i.complete && i.naturalWidth > 0)")));
    }

    void testDetailsOfASetListItsMembers()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf =
            FindLeaf(catalogue, [](const ResultTable &rows) { return FirstSet(rows) > 0; });
        QVERIFY(leaf != nullptr);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        const ResultTable rows = catalogue.Window().Protocol().ProductRows();
        const int set = FirstSet(rows);
        QVERIFY(catalogue.Click(
            QStringLiteral("a[href='product_details.html?id=%1']").arg(rows.Text(set, 0))));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_details.html")));
        QVERIFY(WaitUntil([&] {
            return catalogue.Window().Protocol().ProductRows().UpperRow() ==
                   catalogue.GetController()
                       .Queries()
                       .QuerySetMembers(rows.Text(set, 0))
                       .UpperRow();
        }));
        QVERIFY(WaitUntil([&] {
            return RowCount(catalogue) == catalogue.Window().Protocol().ProductRows().UpperRow();
        }));
        QCOMPARE(catalogue.Evaluate(
                     QStringLiteral("document.getElementById('imagesTable').style.visibility")),
                 QVariant(QStringLiteral("hidden")));
    }

    void testLinkToACategoryInsideAPageSelectsItsNode()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(catalogue.Click(QStringLiteral("#list a")));
        QVERIFY(WaitUntil([&] { return catalogue.Window().CurrentNode() != nullptr; }));
        const CategoryNode *const node = catalogue.Window().CurrentNode();
        QVERIFY(catalogue.Window().TreeViewCategories->IsBold(node));
        QVERIFY(catalogue.WaitForFilledPage(node->HasChildren()
                                                ? QStringLiteral("category_list.html")
                                                : QStringLiteral("product_list.html")));
        QCOMPARE(InnerText(catalogue, QStringLiteral("caption")).trimmed(), node->text);
    }

    void testNewNodeTakesTheBoldAndThePathOfTheOld()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const auto &nodes = catalogue.Window().Tree().Nodes();
        const CategoryNode *const first = nodes.front()->children.front();
        const CategoryNode *const second = nodes.back().get();
        CategoryTreeView *const tree = catalogue.Window().TreeViewCategories;
        ClickInTree(catalogue, first);
        QVERIFY(tree->IsBold(first));
        QVERIFY(tree->ItemOf(first->parent)->isExpanded());
        ClickInTree(catalogue, second);
        QVERIFY(!tree->IsBold(first));
        QVERIFY(!tree->ItemOf(first->parent)->isExpanded());
        QVERIFY(tree->IsBold(second));
        QVERIFY(second->parent == nullptr || tree->ItemOf(second->parent)->isExpanded());
    }

    void testLanguageChangeKeepsTheNodeAndRefillsThePage()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        const QString english = leaf->text;
        QTest::mouseClick(catalogue.Window().header->btnLang[0], Qt::LeftButton);
        QCOMPARE(catalogue.Window().CurrentNode(), leaf);
        QVERIFY(leaf->text != english);
        QCOMPARE(catalogue.Window().TreeViewCategories->ItemOf(leaf)->text(0), leaf->text);
        QVERIFY(WaitUntil([&] {
            return InnerText(catalogue, QStringLiteral("caption")).trimmed() == leaf->text;
        }));
        QCOMPARE(catalogue.Window().tabMain->tabText(0),
                 catalogue.GetController().GetText(QStringLiteral("tabControlMain")));
        QCOMPARE(catalogue.GetRegistry().RegGetString(SettingsKey, QStringLiteral("Location")),
                 QStringLiteral("German"));
    }

    void testMenuAndLabelChooseALanguageAlike()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        const auto highlight = [&] {
            QString marks;
            for (size_t i = 0; i < 5; ++i)
                marks += QString::number(catalogue.Window().header->btnLang[i]->isChecked()) +
                         QString::number(catalogue.Window().menus->mLanguageSelect[i]->isChecked());
            return marks;
        };
        QCOMPARE(highlight(), QStringLiteral("0011000000"));
        QTest::mouseClick(catalogue.Window().header->btnLang[2], Qt::LeftButton);
        QCOMPARE(highlight(), QStringLiteral("0000110000"));
        catalogue.Window().menus->mLanguageSelect[3]->trigger();
        QCOMPARE(highlight(), QStringLiteral("0000001100"));
        catalogue.Window().menus->mLanguageSelect[3]->trigger();
        QCOMPARE(highlight(), QStringLiteral("0000001100"));
        QTest::mouseClick(catalogue.Window().header->btnLang[3], Qt::LeftButton);
        QCOMPARE(highlight(), QStringLiteral("0000001100"));
        QCOMPARE(catalogue.GetController().Languages().CurrentCode(), QStringLiteral("sp"));
    }

    void testLanguageChangeRefillsThePageBehindAJump()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        QSignalSpy filled(&catalogue.Window().Protocol(), &PageProtocol::PageFilled);
        catalogue.Evaluate(QStringLiteral("location.hash = 'contListRow5'"));
        QVERIFY(WaitUntil([&] { return filled.size() == 1; }));
        QVERIFY(catalogue.Window().Protocol().CurrentUrl().endsWith(
            leaf->tag + QLatin1String("#contListRow5")));
        QCOMPARE(RowCount(catalogue), 20);
        const QString english = leaf->text;
        QTest::mouseClick(catalogue.Window().header->btnLang[0], Qt::LeftButton);
        QVERIFY(leaf->text != english);
        QVERIFY(WaitUntil([&] {
            return InnerText(catalogue, QStringLiteral("caption")).trimmed() == leaf->text;
        }));
        QCOMPARE(RowCount(catalogue), 20);
    }

    void testDocumentComesBackInTheNewLanguage()
    {
        CatalogueWindow catalogue(SampleCatalogue, QStringLiteral("German"));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QSignalSpy complete(catalogue.Window().wbMain, &WebBrowser::DocumentComplete);
        catalogue.Window().wbMain->Navigate(
            catalogue.GetController().GetInfoDocumentUrl(QStringLiteral("hcare")));
        QVERIFY(WaitUntil([&] { return complete.size() == 1; }));
        QVERIFY(catalogue.Window().Protocol().CurrentUrl().endsWith(
            QLatin1String("/Dokumente/info_ge_care.html")));
        QTest::mouseClick(catalogue.Window().header->btnLang[1], Qt::LeftButton);
        QVERIFY(WaitUntil([&] { return complete.size() == 2; }));
        QVERIFY(catalogue.Window().Protocol().CurrentUrl().endsWith(
            QLatin1String("/Dokumente/info_en_care.html")));
    }

    void testInchShowsTheOtherSizes()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        const ResultTable rows = catalogue.Window().Protocol().ProductRows();
        const QString cm = GetField(QStringLiteral("p.sCm"), rows, 1);
        const QString inch = GetField(QStringLiteral("p.sInch"), rows, 1);
        QVERIFY(InnerText(catalogue, QStringLiteral("contListRow1")).contains(cm));
        QComboBox *const units = catalogue.Window().header->cbUnitSelection;
        units->setFocus();
        QTest::keyClick(units, Qt::Key_Down);
        QCOMPARE(catalogue.GetController().GetUnit(), 1);
        QVERIFY(WaitUntil(
            [&] { return InnerText(catalogue, QStringLiteral("contListRow1")).contains(inch); }));
        QVERIFY(!InnerText(catalogue, QStringLiteral("contListRow1")).contains(cm));
    }

    void testCartLinkAsksForTheAmountAndAdds()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        ClickInTree(catalogue, FindLongLeaf(catalogue));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        const ResultTable rows = catalogue.Window().Protocol().ProductRows();
        QString message;
        for (int round = 0; round < 2; ++round) {
            QVERIFY(CatalogueWindow::AnswerDialogs(
                [&] {
                    QVERIFY(
                        catalogue.Click(QStringLiteral("#contListRow3 a[href*='setStatusbar']")));
                },
                {[&](QWidget *dialog) {
                     QVERIFY(qobject_cast<frmShoppingCartAmount *>(dialog) != nullptr);
                     QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("3"));
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                 },
                 [&](QWidget *box) {
                     message = qobject_cast<QMessageBox *>(box)->text();
                     QTest::mouseClick(Button(box, QMessageBox::Ok), Qt::LeftButton);
                 }}));
        }
        QCOMPARE(message, catalogue.GetController()
                              .GetText(QStringLiteral("ucShoppingCartAddSuccess2"))
                              .replace(QLatin1String("{0}"), QLatin1String("3")));
        const clsShoppingCart &cart = catalogue.GetController().GetShoppingCart();
        QCOMPARE(cart.Count(), qint16(2));
        QCOMPARE(cart.Entries().At(0)->ArtNr, GetField(QStringLiteral("p.artNr"), rows, 3));
        QCOMPARE(cart.Entries().At(0)->Amount, qint16(3));
        // The row's own click, which opens the details, must not have run as well.
        QVERIFY(catalogue.Window().wbMain->Address().contains(QLatin1String("product_list.html")));
    }

    void testEqualStatusTextAsksOnlyOnce()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        int dialogs = 0;
        const auto say = [&](const QString &text) {
            QSignalSpy status(catalogue.Window().wbMain, &WebBrowser::StatusTextChange);
            QTimer closer;
            QObject::connect(&closer, &QTimer::timeout, &closer, [&] {
                if (QWidget *const dialog = QApplication::activeModalWidget()) {
                    ++dialogs;
                    QTest::keyClick(dialog, Qt::Key_Escape);
                }
            });
            closer.start(10);
            catalogue.Evaluate(QStringLiteral("window.status = '%1'").arg(text));
            QVERIFY(WaitUntil([&] { return status.size() == 1; }));
            QVERIFY(WaitUntil([&] { return QApplication::activeModalWidget() == nullptr; }));
        };
        say(QStringLiteral("shoppingCart:1"));
        QCOMPARE(dialogs, 1);
        say(QStringLiteral("shoppingCart:1"));
        QCOMPARE(dialogs, 1);
        say(QStringLiteral("again shoppingCart:1"));
        QCOMPARE(dialogs, 2);
        say(QStringLiteral("shoppingCart:1"));
        QCOMPARE(dialogs, 3);
        say(QStringLiteral("shoppingCart:"));
        QCOMPARE(dialogs, 3);
        say(QStringLiteral("something else"));
        QCOMPARE(dialogs, 3);
        QCOMPARE(catalogue.GetController().GetShoppingCart().Count(), qint16(0));
    }

    void testAllLanguagesFillEveryPage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("code");
        QTest::newRow("German") << "German"
                                << "ge";
        QTest::newRow("English") << "English"
                                 << "en";
        QTest::newRow("French") << "French"
                                << "fr";
        QTest::newRow("Spanish") << "Spanish"
                                 << "sp";
        QTest::newRow("Italian") << "Italian"
                                 << "it";
    }

    void testAllLanguagesFillEveryPage()
    {
        QFETCH(QString, language);
        QFETCH(QString, code);
        CatalogueWindow catalogue(SampleCatalogue, language);
        QCOMPARE(catalogue.GetController().Languages().CurrentCode(), code);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        QVERIFY(leaf != nullptr);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        QCOMPARE(InnerText(catalogue, QStringLiteral("caption")).trimmed(), leaf->text);
        QVERIFY(InnerText(catalogue, QStringLiteral("list"))
                    .contains(catalogue.GetController().GetText(
                        QStringLiteral("productListCaptionDescription"))));
        const ResultTable rows = catalogue.Window().Protocol().ProductRows();
        QVERIFY(catalogue.Click(QStringLiteral("#contListRow1 a.prodItem")));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_details.html")));
        QCOMPARE(InnerText(catalogue, QStringLiteral("productTitle")).trimmed(),
                 GetField(QStringLiteral("l.name"), rows, 1));
    }

    void testButtonsOfTheDesktopSpeakTheLanguage()
    {
        CatalogueWindow catalogue(SampleCatalogue, QStringLiteral("German"));
        const auto yes = [] {
            QMessageBox box(QMessageBox::NoIcon, QString(), QString(), QMessageBox::Yes);
            return box.button(QMessageBox::Yes)->text().remove(u'&');
        };
        QCOMPARE(yes(), QStringLiteral("Ja"));
        QTest::mouseClick(catalogue.Window().header->btnLang[4], Qt::LeftButton);
        QCOMPARE(yes(), QStringLiteral("Sì"));
        QTest::mouseClick(catalogue.Window().header->btnLang[1], Qt::LeftButton);
        QCOMPARE(yes(), QStringLiteral("Yes"));
    }

    void testFolderWithBlanksAndAnUmlaut()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Lenas' Katalog für 100% #1"));
        QVERIFY(CopyApplicationDirectory(SampleCatalogue, path));
        CatalogueWindow catalogue(path);
        QVERIFY(catalogue.WaitForFilledPage(
            QStringLiteral("Lenas' Katalog für 100% #1/content/welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        QVERIFY(catalogue.Click(QStringLiteral("#contListRow1 td:nth-child(2)")));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_details.html")));
        QVERIFY(catalogue.WaitFor(QStringLiteral("product_details"),
                                  QStringLiteral("[...document.images].every("
                                                 "i => i.complete && i.naturalWidth > 0)")));
    }

    void testDatabaseOfTheVersion2Engine()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("app"));
        QVERIFY(CopyApplicationDirectory(SampleCatalogue, path));
        QVERIFY(QFile::remove(path + QLatin1String("/catalog.db")));
        QVERIFY(QFile::copy(QStringLiteral(SAMPLES_DIR "/catalog.db"),
                            path + QLatin1String("/catalog.db")));
        CatalogueWindow catalogue(path);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QCOMPARE(catalogue.Window().Tree().Nodes().size(), size_t(22));
        const CategoryNode *const leaf = catalogue.Window().Tree().FindByTag(QStringLiteral("2"));
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        QCOMPARE(RowCount(catalogue), 12);
        QVERIFY(InnerText(catalogue, QStringLiteral("contListRow1"))
                    .contains(QStringLiteral("Scissors Ibáñez straight")));
    }

    void testStoredPriceListShowsPrices()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        catalogue.GetController().Prices().LoadPriceList(SampleCatalogue +
                                                         QLatin1String("/price_list.txt"));
        ClickInTree(catalogue, FindLongLeaf(catalogue));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        const ResultTable rows = catalogue.Window().Protocol().ProductRows();
        QVERIFY(catalogue.Click(QStringLiteral("#contListRow1 a.prodItem")));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_details.html")));
        QVERIFY(
            InnerText(catalogue, QStringLiteral("productDetails")).contains(QLatin1String("EUR")));
    }

    void testFailedPriceListOfTheMenuIsToldAndTheProgramGoesOn()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("twice.txt"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write("AB 1\t1,00\r\nAB1\t2,00\r\n") > 0);
        file.close();
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QString message;
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] {
                QTimer::singleShot(0, catalogue.Window().menus->mLoadPriceList, &QAction::trigger);
            },
            {[&](QWidget *dialog) {
                 auto *const name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
                 QVERIFY(name != nullptr);
                 name->setText(path);
                 QTest::keyClick(name, Qt::Key_Return);
             },
             [&](QWidget *box) {
                 message = qobject_cast<QMessageBox *>(box)->text();
                 QTest::keyClick(box, Qt::Key_Return);
             }}));
        QVERIFY2(message.contains(path) && message.contains(QLatin1String("AB1")),
                 qPrintable(message));
        QCOMPARE(catalogue.GetRegistry().RegGetString(SettingsKey, QStringLiteral("PriceListPath")),
                 QString());
        ClickInTree(catalogue, FindLongLeaf(catalogue));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
    }

    void testMissingPageLeavesNoHourglass()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("app"));
        QVERIFY(CopyApplicationDirectory(SampleCatalogue, path));
        QVERIFY(QFile::remove(path + QLatin1String("/content/product_list.html")));
        CatalogueWindow catalogue(path);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        ClickInTree(catalogue, FindLongLeaf(catalogue));
        QVERIFY(QApplication::overrideCursor() != nullptr);
        QVERIFY(WaitUntil([] { return QApplication::overrideCursor() == nullptr; }));
        const CategoryNode *const top = catalogue.Window().Tree().Nodes().front().get();
        ClickInTree(catalogue, top);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("category_list.html")));
        QVERIFY(WaitUntil([] { return QApplication::overrideCursor() == nullptr; }));
    }

    void testStatusTextOutlivesTheMenus()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        frmCatalog &window = catalogue.Window();
        QCOMPARE(window.lblStatus->text(),
                 catalogue.GetController().GetText(QStringLiteral("defaultStatusBar")));
        const CategoryNode *const node = window.Tree().Nodes().front()->children.front();
        ClickInTree(catalogue, node);
        QCOMPARE(window.lblStatus->text(), node->parent->text + u'\\' + node->text);
        window.menus->mFile->popup(window.mapToGlobal(QPoint(10, 10)));
        QTest::keyClick(window.menus->mFile, Qt::Key_Down);
        window.menus->mFile->close();
        QVERIFY(window.lblStatus->isVisible());
        QCOMPARE(window.lblStatus->text(), node->FullPath());
    }

    void testClosingWithNoKeepsTheWindowOpen()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QString question;
        const auto close = [&] { catalogue.Window().close(); };
        QVERIFY(CatalogueWindow::AnswerDialogs(close, {[&](QWidget *box) {
                                                   question =
                                                       qobject_cast<QMessageBox *>(box)->text();
                                                   QTest::mouseClick(Button(box, QMessageBox::No),
                                                                     Qt::LeftButton);
                                               }}));
        QVERIFY(catalogue.Window().isVisible());
        QVERIFY(!question.isEmpty());
        QVERIFY(!question.contains(QLatin1String("{nl}")));
        QVERIFY(CatalogueWindow::AnswerDialogs(close, {[&](QWidget *box) {
                                                   QTest::mouseClick(Button(box, QMessageBox::Yes),
                                                                     Qt::LeftButton);
                                               }}));
        QVERIFY(!catalogue.Window().isVisible());
    }

    void testExitMenuEndsTheProgramWhateverTheAnswer_data()
    {
        QTest::addColumn<QMessageBox::StandardButton>("answer");
        QTest::addColumn<bool>("isDatabaseOpen");
        QTest::newRow("Yes") << QMessageBox::Yes << false;
        QTest::newRow("No") << QMessageBox::No << true;
    }

    void testExitMenuEndsTheProgramWhateverTheAnswer()
    {
        QFETCH(QMessageBox::StandardButton, answer);
        QFETCH(bool, isDatabaseOpen);
        CatalogueWindow catalogue(SampleCatalogue);
        int questions = 0;
        QTimer answerer;
        QObject::connect(&answerer, &QTimer::timeout, &answerer, [&] {
            if (QWidget *const box = QApplication::activeModalWidget()) {
                ++questions;
                QTest::mouseClick(Button(box, answer), Qt::LeftButton);
            }
        });
        answerer.start(10);
        QTimer::singleShot(0, catalogue.Window().menus->mExit, &QAction::trigger);
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(questions, 1);
        QCOMPARE(catalogue.GetController().Queries().QueryCategories().HasData(), isDatabaseOpen);
    }

    void testMissingVersionFileIsAnError()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("app"));
        QVERIFY(CopyApplicationDirectory(SampleCatalogue, path));
        QVERIFY(QFile::remove(path + QLatin1String("/version")));
        QVERIFY_THROWS_EXCEPTION(FileError, CatalogueWindow{path});
    }
};

int main(int argc, char **argv)
{
    ConfigureEngine();
    CatalogApplication application(argc, argv);
    TestBrowsing test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_browsing.moc"
