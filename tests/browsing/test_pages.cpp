#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/LogoButton.h"
#include "ui/main/MainMenu.h"
#include "ui/main/PageProtocol.h"

#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

using namespace Tesk;

/// Browsing the built sample catalogue with the mouse, in the real engine.
class TestPages final : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<CatalogueWindow> catalogue;

    /// A leaf with products on the third level, not the only one there.
    const CategoryNode *DeepLeaf() const
    {
        for (const auto &node : catalogue->Window().Tree().Nodes()) {
            const CategoryNode *const parent = node->parent;
            if (!node->HasChildren() && parent != nullptr && parent->parent != nullptr &&
                parent->children.size() > 1 && parent->children.front() == node.get() &&
                catalogue->GetController().Queries().QueryProductsOfCategory(node->tag).HasData())
                return node.get();
        }
        return nullptr;
    }

    bool IsExpanded(const CategoryNode *node) const
    {
        return catalogue->Window().TreeViewCategories->ItemOf(node)->isExpanded();
    }

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("content/welcome.html")));
    }
    void cleanup() { catalogue.reset(); }

    void testStartShowsTheFilledWelcomePage()
    {
        const LanguageSupport &languages = catalogue->GetController().Languages();
        QCOMPARE(InnerText(*catalogue, QStringLiteral("captionRight")).trimmed(),
                 languages.GetText(QStringLiteral("ucCategoriesCaption")));
        int listed = 0;
        for (const auto &node : catalogue->Window().Tree().Nodes()) {
            if (node->parent == nullptr || node->parent->parent == nullptr)
                ++listed;
        }
        QCOMPARE(catalogue->Evaluate(QStringLiteral(
                     "document.querySelectorAll('#list .navHeadline, #list a').length")),
                 QVariant(listed));
        QVERIFY(!catalogue->Window().History().HasMoreEntries());
    }

    void testClickOnACategoryWithChildrenOpensTheCategoryPage()
    {
        const CategoryNode *const top = catalogue->Window().Tree().Nodes().front().get();
        ClickInTree(*catalogue, top);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("category_list.html?id=") + top->tag));
        QCOMPARE(InnerText(*catalogue, QStringLiteral("caption")).trimmed(), top->text);
        QCOMPARE(catalogue->Window().tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QCOMPARE(catalogue->Evaluate(QStringLiteral("document.querySelectorAll('#list a').length")),
                 QVariant(int(top->children.size())));
    }

    void testClickOnALeafOpensTheListAtItem1()
    {
        const CategoryNode *const leaf = FindLongLeaf(*catalogue);
        QVERIFY(leaf != nullptr);
        ClickInTree(*catalogue, leaf);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_list.html?firstItem=1&id=") +
                                             leaf->tag));
        QCOMPARE(RowCount(*catalogue), 20);
        QVERIFY(catalogue->Evaluate(QStringLiteral("!!document.getElementById('contListRow1')"))
                    .toBool());
    }

    void testPagerLeadsToTheSecondPage()
    {
        const CategoryNode *const leaf = FindLongLeaf(*catalogue);
        QVERIFY(leaf != nullptr);
        ClickInTree(*catalogue, leaf);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("firstItem=1&")));
        QVERIFY(catalogue->Click(QStringLiteral("a[href*='firstItem=21&']")));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("firstItem=21&")));
        QCOMPARE(RowCount(*catalogue), 20);
        QVERIFY(catalogue->Evaluate(QStringLiteral("!!document.getElementById('contListRow40')"))
                    .toBool());
    }

    void testClickOnARowOpensTheDetails()
    {
        const CategoryNode *const leaf = FindLongLeaf(*catalogue);
        QVERIFY(leaf != nullptr);
        ClickInTree(*catalogue, leaf);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("firstItem=1&")));
        const ResultTable rows = catalogue->Window().Protocol().ProductRows();
        QVERIFY(catalogue->Click(QStringLiteral("#contListRow2 td:nth-child(2)")));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") +
                                             rows.Text(2, 0)));
        QCOMPARE(InnerText(*catalogue, QStringLiteral("productTitle")).trimmed(),
                 GetField(QStringLiteral("l.name"), rows, 2));
        QVERIFY(InnerText(*catalogue, QStringLiteral("productDetails"))
                    .contains(GetField(QStringLiteral("p.artNr"), rows, 2)));
        QVERIFY(
            catalogue->WaitFor(QStringLiteral("product_details"),
                               QStringLiteral("(pictures => pictures.length > 0 && pictures.every("
                                              " i => i.complete && i.naturalWidth > 0))"
                                              "([...document.querySelectorAll("
                                              "'#productImages img')])")));
    }

    void testDetailsOfASetListItsMembers()
    {
        const CategoryNode *const leaf =
            FindLeaf(*catalogue, [](const ResultTable &rows) { return FirstSet(rows) > 0; });
        QVERIFY(leaf != nullptr);
        ClickInTree(*catalogue, leaf);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_list.html")));
        const ResultTable rows = catalogue->Window().Protocol().ProductRows();
        const int set = FirstSet(rows);
        QVERIFY(catalogue->Click(
            QStringLiteral("a[href='product_details.html?id=%1']").arg(rows.Text(set, 0))));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html")));
        QVERIFY(WaitUntil([&] {
            return catalogue->Window().Protocol().ProductRows().UpperRow() ==
                   catalogue->GetController()
                       .Queries()
                       .QuerySetMembers(rows.Text(set, 0))
                       .UpperRow();
        }));
        QVERIFY(WaitUntil([&] {
            return RowCount(*catalogue) == catalogue->Window().Protocol().ProductRows().UpperRow();
        }));
        QCOMPARE(catalogue->Evaluate(
                     QStringLiteral("document.getElementById('imagesTable').style.visibility")),
                 QVariant(QStringLiteral("hidden")));
    }

    void testLinkToACategoryInsideAPageSelectsItsNode()
    {
        QVERIFY(catalogue->Click(QStringLiteral("#list a")));
        QVERIFY(WaitUntil([&] { return catalogue->Window().CurrentNode() != nullptr; }));
        const CategoryNode *const node = catalogue->Window().CurrentNode();
        QVERIFY(catalogue->Window().TreeViewCategories->IsBold(node));
        QVERIFY(catalogue->WaitForFilledPage(node->HasChildren()
                                                 ? QStringLiteral("category_list.html")
                                                 : QStringLiteral("product_list.html")));
        QCOMPARE(InnerText(*catalogue, QStringLiteral("caption")).trimmed(), node->text);
    }

    void testNewNodeTakesTheBoldAndThePathOfTheOld()
    {
        const CategoryNode *const old = DeepLeaf();
        QVERIFY(old != nullptr);
        const auto &nodes = catalogue->Window().Tree().Nodes();
        const auto found = std::find_if(nodes.begin(), nodes.end(), [old](const auto &node) {
            return node->HasChildren() && node->parent == nullptr &&
                   node.get() != old->parent->parent;
        });
        QVERIFY(found != nodes.end());
        const CategoryNode *const next = found->get();
        CategoryTreeView *const tree = catalogue->Window().TreeViewCategories;
        ClickInTree(*catalogue, old);
        QVERIFY(tree->IsBold(old));
        QVERIFY(IsExpanded(old->parent) && IsExpanded(old->parent->parent));
        tree->ItemOf(next)->setExpanded(false);

        ClickInTree(*catalogue, next);
        QVERIFY(!tree->IsBold(old));
        QVERIFY(!IsExpanded(old->parent) && !IsExpanded(old->parent->parent));
        QVERIFY(tree->IsBold(next));
        QVERIFY(IsExpanded(next));
    }

    void testCommonPartOfTwoPathsStaysExpanded()
    {
        const CategoryNode *const leaf = DeepLeaf();
        const CategoryNode *const parent = leaf->parent;
        const CategoryNode *const sibling = parent->children.back();
        QVERIFY(sibling != leaf);
        CategoryTreeView *const tree = catalogue->Window().TreeViewCategories;
        ClickInTree(*catalogue, leaf);
        ClickInTree(*catalogue, sibling);
        QVERIFY(tree->IsBold(sibling) && !tree->IsBold(leaf));
        QVERIFY(IsExpanded(parent) && IsExpanded(parent->parent));
        // The way up folds what lies below.
        ClickInTree(*catalogue, parent->parent);
        QVERIFY(IsExpanded(parent->parent));
        QVERIFY(!IsExpanded(parent));
    }

    void testTitleTellsTheVersion()
    {
        QFile file(SampleCatalogue + QLatin1String("/version"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString version = QString::fromLatin1(file.readLine()).trimmed();
        QVERIFY(!version.isEmpty());
        QCOMPARE(catalogue->Window().windowTitle(),
                 QStringLiteral("Tesk Instruments Catalog | Version ") + version);
    }

    void testLogoLeadsHome()
    {
        ClickInTree(*catalogue, DeepLeaf());
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_list.html")));
        frmCatalog &window = catalogue->Window();
        window.ShowCartTab();
        ClickOn(window.header->imgLogo);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("content/welcome.html")));
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QCOMPARE(window.lblStatus->text(),
                 catalogue->GetController().GetText(QStringLiteral("defaultStatusBar")));
    }

    void testLineIsRed()
    {
        auto *const line = catalogue->Window().findChild<QWidget *>(QStringLiteral("Line1"));
        QVERIFY(line != nullptr && line->isVisible());
        const QImage picture = line->grab().toImage();
        QCOMPARE(picture.pixelColor(picture.rect().center()), QColor(219, 39, 28));
    }

    void testStatusTextOutlivesTheMenus()
    {
        frmCatalog &window = catalogue->Window();
        QCOMPARE(window.lblStatus->text(),
                 catalogue->GetController().GetText(QStringLiteral("defaultStatusBar")));
        const CategoryNode *const node = window.Tree().Nodes().front()->children.front();
        ClickInTree(*catalogue, node);
        QCOMPARE(window.lblStatus->text(), node->parent->text + u'\\' + node->text);
        window.menus->mFile->popup(window.mapToGlobal(QPoint(10, 10)));
        QTest::keyClick(window.menus->mFile, Qt::Key_Down);
        window.menus->mFile->close();
        QVERIFY(window.lblStatus->isVisible());
        QCOMPARE(window.lblStatus->text(), node->FullPath());
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestPages>(argc, argv);
}
#include "test_pages.moc"
