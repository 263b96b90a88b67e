#include "browser/WebBrowser.h"
#include "core/CategoryTree.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/SearchForm.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/CrumbButton.h"
#include "ui/main/controls/NavEntry.h"
#include "ui/main/controls/NavLeft.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

using namespace Tesk;

/// The crumbs of the real window under the mouse and the keys.
class TestBreadcrumbs final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }

    void cleanup() { catalogue.reset(); }

    void testWelcomePageShowsTheHomeCrumbAlone()
    {
        QCOMPARE(Captions(), QStringList{QStringLiteral("tesk-shop")});
    }

    void testClickedCrumbsLeadUpAndHome()
    {
        const CategoryNode *const leaf = DeepLeaf();
        QVERIFY(leaf != nullptr);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, leaf); }));
        QStringList path;
        for (const CategoryNode *node = leaf; node != nullptr; node = node->parent)
            path.prepend(node->text);
        QVERIFY(path.size() >= 3);
        QCOMPARE(Captions(), QStringList{QStringLiteral("tesk-shop")} + path);

        // Shorter paths hide the crumbs that they do not need.
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickOn(Shown()[1]); }));
        QVERIFY(WaitUntil([&] { return Captions().size() == 2; }));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("category_list.html?id=")));
        QCOMPARE(ShownCaption(*catalogue), path.first());
        QCOMPARE(catalogue->Window().CurrentNode()->text, path.first());
        QCOMPARE(Captions(), QStringList({QStringLiteral("tesk-shop"), path.first()}));

        ClickOn(Shown()[0]);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        QCOMPARE(Captions(), QStringList{QStringLiteral("tesk-shop")});
    }

    void testCrumbOfTheListOpensItAgain()
    {
        const CategoryNode *const leaf = DeepLeaf();
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, leaf); }));
        QVERIFY(WaitForFillAfter(*catalogue, [&] {
            QVERIFY(catalogue->Click(QStringLiteral("#contListRow1 td:nth-child(2)")));
        }));
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickOn(Shown().last()); }));
        QVERIFY(catalogue->Window().wbMain->Address().endsWith(
            QLatin1String("product_list.html?firstItem=1&id=") + leaf->tag));
        QCOMPARE(ShownCaption(*catalogue), leaf->text);
    }

    void testCrumbWithoutLinkDoesNothing()
    {
        frmCatalog &window = catalogue->Window();
        OpenSearchForm();
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::SearchTab));
        QCOMPARE(Captions(),
                 QStringList({QStringLiteral("tesk-shop"), QStringLiteral("Detailsuche")}));
        const QString address = window.wbMain->Address();
        ClickOn(Shown()[1]);
        // The page answers behind whatever the click might have started.
        catalogue->Evaluate(QStringLiteral("document.title"));
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::SearchTab));
        QCOMPARE(window.wbMain->Address(), address);
        QCOMPARE(Captions().size(), 2);
        QVERIFY(!window.History().HasMoreEntries());

        // The home crumb beside it still leads home.
        ClickOn(Shown()[0]);
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QVERIFY(WaitUntil([&] { return Captions().size() == 1; }));
    }

    void testCrumbShowsItsPageFromEveryTab_data()
    {
        QTest::addColumn<int>("tab");
        QTest::newRow("categories") << int(frmCatalog::CategoriesTab);
        QTest::newRow("search") << int(frmCatalog::SearchTab);
        QTest::newRow("cart") << int(frmCatalog::CartTab);
    }

    void testCrumbShowsItsPageFromEveryTab()
    {
        QFETCH(const int, tab);
        OpenSearchForm();
        const CategoryNode *const leaf = DeepLeaf();
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, leaf); }));
        QCOMPARE(ShownCaption(*catalogue), leaf->text);
        ClickOnTab(tab);
        const QString caption = Captions()[1];
        QVERIFY(caption != leaf->text);
        ClickOn(Shown()[1]);
        QCOMPARE(catalogue->Window().tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QVERIFY(WaitUntil([&] { return ShownCaption(*catalogue) == caption; }));
    }

    void testLeavingTheSearchFormTellsOfThePageAgain_data()
    {
        QTest::addColumn<int>("tab");
        QTest::newRow("products") << int(frmCatalog::ProductsTab);
        QTest::newRow("categories") << int(frmCatalog::CategoriesTab);
        QTest::newRow("cart") << int(frmCatalog::CartTab);
    }

    void testLeavingTheSearchFormTellsOfThePageAgain()
    {
        QFETCH(const int, tab);
        const CategoryNode *const leaf = DeepLeaf();
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, leaf); }));
        const QStringList captions = Captions();
        const QString mark = leaf->SecondLevelAncestor()->tag;
        QCOMPARE(MarkedTags(), QStringList{mark});
        for (int round = 0; round < 2; ++round) {
            OpenSearchForm();
            QCOMPARE(Captions().last(), QStringLiteral("Detailsuche"));
            QCOMPARE(MarkedTags(), QStringList{QStringLiteral("searchDetail")});
            ClickOnTab(tab);
            QCOMPARE(Captions(), captions);
            QCOMPARE(MarkedTags(), QStringList{mark});
        }
        // Chosen by its tab, the form leaves everything as it is.
        ClickOnTab(frmCatalog::SearchTab);
        QCOMPARE(Captions(), captions);
        QCOMPARE(MarkedTags(), QStringList{mark});
    }

    void testSearchFormLeftForTheWelcomePageMarksNothing()
    {
        OpenSearchForm();
        ClickOnTab(frmCatalog::ProductsTab);
        QCOMPARE(Captions(), QStringList{QStringLiteral("tesk-shop")});
        QCOMPARE(MarkedTags(), QStringList());
    }

    void testWayBackToTheSearchFormAndOutOfIt()
    {
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, DeepLeaf()); }));
        SearchForm form(*catalogue);
        form.Open();
        form.Fill({.description = QStringLiteral("metzenbaum")});
        QVERIFY(WaitForFillAfter(*catalogue, [&] { form.Submit(); }));
        QCOMPARE(Captions(), QStringList{QStringLiteral("tesk-shop")});
        QCOMPARE(MarkedTags(), QStringList());
        ClickOn(ButtonOfScroller(*catalogue, "btnBack"));
        QCOMPARE(catalogue->Window().tabMain->currentIndex(), int(frmCatalog::SearchTab));
        QCOMPARE(Captions().last(), QStringLiteral("Detailsuche"));
        QCOMPARE(MarkedTags(), QStringList{QStringLiteral("searchDetail")});
        // The hits are still the page shown.
        ClickOnTab(frmCatalog::ProductsTab);
        QCOMPARE(Captions(), QStringList{QStringLiteral("tesk-shop")});
        QCOMPARE(MarkedTags(), QStringList());
    }

    void testKeysPressACrumb()
    {
        const CategoryNode *const leaf = DeepLeaf();
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, leaf); }));
        Shown()[0]->setFocus(Qt::TabFocusReason);
        PressKey(Shown()[0], Qt::Key_Tab);
        QVERIFY(Shown()[1]->hasFocus());
        const QString caption = Captions()[1];
        PressKey(Shown()[1], Qt::Key_Return);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("category_list.html?id=")));
        QVERIFY(WaitUntil([&] { return ShownCaption(*catalogue) == caption; }));
    }

    void testChangeOfLanguageKeepsTheCrumbsOfAProductFromTheCart()
    {
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, DeepLeaf()); }));
        catalogue->GetController().AddProductToCart(2, 1, QString());
        ClickOn(Shown()[0]);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        CartTab cart(*catalogue);
        QVERIFY(cart.Open());
        QVERIFY(WaitForFillAfter(*catalogue, [&] {
            QVERIFY(cart.Page().Click(QStringLiteral("#contListRow0 td:nth-child(3)")));
        }));
        QVERIFY(catalogue->Window().CurrentNode() != nullptr);
        QCOMPARE(Captions(), QStringList{QStringLiteral("tesk-shop")});
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ChooseGerman(); }));
        QCOMPARE(Captions(), QStringList{QStringLiteral("tesk-shop")});
    }

    void testCrumbsOfAProductChangeTheirLanguage()
    {
        const CategoryNode *const leaf = DeepLeaf();
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, leaf); }));
        QVERIFY(WaitForFillAfter(*catalogue, [&] {
            QVERIFY(catalogue->Click(QStringLiteral("#contListRow1 td:nth-child(2)")));
        }));
        const QStringList english = Captions();
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ChooseGerman(); }));
        QCOMPARE(Captions().size(), english.size());
        QVERIFY(Captions().last() != english.last());
        QCOMPARE(Captions().mid(1).join(u'\\'), leaf->FullPath());
        // They still lead where they did.
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickOn(Shown().last()); }));
        QCOMPARE(ShownCaption(*catalogue), leaf->text);
    }

    void testSearchResultsHaveTheHomeCrumbAlone()
    {
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, DeepLeaf()); }));
        QVERIFY(WaitForFillAfter(*catalogue,
                                 [&] { FastSearchFor(*catalogue, QStringLiteral("metzenbaum")); }));
        QCOMPARE(Captions(), QStringList{QStringLiteral("tesk-shop")});
    }

private:
    /// A leaf with products below at least two other categories.
    const CategoryNode *DeepLeaf()
    {
        for (const auto &node : catalogue->Window().Tree().Nodes()) {
            const CategoryNode *const parent = node->parent;
            if (!node->HasChildren() && parent != nullptr && parent->parent != nullptr &&
                catalogue->GetController().Queries().QueryProductsOfCategory(node->tag).HasData())
                return node.get();
        }
        return nullptr;
    }

    /// By the last entry of the left menu.
    void OpenSearchForm()
    {
        NavLeft *const menu = catalogue->Window().ucNavLeft;
        NavEntry *const search = menu->findChildren<NavEntry *>().last();
        QVERIFY(TurnWheelTo(menu, search));
        ClickOn(search);
    }

    void ChooseGerman() { ClickOn(catalogue->Window().header->btnLang[0]); }

    void ClickOnTab(int tab)
    {
        QTabBar *const tabs = catalogue->Window().tabMain->tabBar();
        ClickOn(tabs, tabs->tabRect(tab).center());
        QCOMPARE(catalogue->Window().tabMain->currentIndex(), tab);
    }

    QStringList MarkedTags()
    {
        QStringList tags;
        const auto entries = catalogue->Window().ucNavLeft->findChildren<NavEntry *>();
        for (const NavEntry *const entry : entries) {
            if (entry->IsMarked())
                tags.append(entry->Tag());
        }
        return tags;
    }

    QList<CrumbButton *> Shown()
    {
        auto crumbs = catalogue->Window().ucBreadcrumb->findChildren<CrumbButton *>();
        crumbs.removeIf([](const CrumbButton *crumb) { return !crumb->isVisible(); });
        return crumbs;
    }

    QStringList Captions()
    {
        QStringList captions;
        const auto shown = Shown();
        for (const CrumbButton *const crumb : shown)
            captions.append(crumb->Caption());
        return captions;
    }

    std::unique_ptr<CatalogueWindow> catalogue;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestBreadcrumbs>(argc, argv);
}
#include "test_breadcrumbs.moc"
