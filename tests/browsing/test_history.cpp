#include "browser/WebBrowser.h"
#include "core/CategoryTree.h"
#include "search/SearchDetail.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/controls/NavEntry.h"
#include "ui/main/controls/NavLeft.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QSet>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

using namespace Tesk;

/// The back button of the real window, after every kind of page.
class TestHistory final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(!BackButton()->isEnabled());
    }

    void cleanup() { catalogue.reset(); }

    void testLeadsBackThroughEveryKindOfPage()
    {
        QStringList visited{Address()};
        const auto visit = [&](const std::function<void()> &action) {
            QVERIFY(WaitForFillAfter(*catalogue, action));
            visited.append(Address());
            QVERIFY(BackButton()->isEnabled());
        };
        const CategoryNode *const leaf =
            FindLeaf(*catalogue, [](const ResultTable &rows) { return FirstSet(rows) > 0; });
        QVERIFY(leaf != nullptr);
        visit([&] { ClickInTree(*catalogue, leaf->parent); });
        visit([&] { ClickInTree(*catalogue, leaf); });
        const ResultTable rows = catalogue->Window().Protocol().ProductRows();
        visit([&] { QVERIFY(catalogue->Click(DetailsLink(rows, FirstSet(rows)))); });
        visit([&] { QVERIFY(catalogue->Click(QStringLiteral("#contListRow1 td:nth-child(2)"))); });
        const QSignalSpy complete(catalogue->Window().wbMain, &WebBrowser::DocumentComplete);
        catalogue->Window().wbMain->Navigate(
            catalogue->GetController().GetInfoDocumentUrl(QStringLiteral("hcare")));
        QVERIFY(WaitUntil([&] { return !complete.isEmpty(); }));
        visited.append(Address());
        visit([&] { FastSearchFor(*catalogue, QStringLiteral("metzenbaum")); });
        QCOMPARE(visited.size(), 7);
        QCOMPARE(QSet<QString>(visited.cbegin(), visited.cend()).size(), 7);

        while (visited.size() > 1) {
            visited.removeLast();
            ClickOn(BackButton());
            QVERIFY(WaitForAddress(visited.last()));
            QCOMPARE(catalogue->Window().tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        }
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(WaitUntil([&] { return !BackButton()->isEnabled(); }));
    }

    void testCategoryReachedByALinkReplacesItsOwnEntry()
    {
        const QString welcome = Address();
        const auto &nodes = catalogue->Window().Tree().Nodes();
        const auto found = std::ranges::find_if(
            nodes, [](const auto &node) { return node->parent != nullptr && node->HasChildren(); });
        QVERIFY(found != nodes.end());
        const CategoryNode *const node = found->get();
        QVERIFY(catalogue->Click(
            QStringLiteral("#list a[href$='category_list.html?id=%1']").arg(node->tag)));
        QVERIFY(WaitUntil([&] { return catalogue->Window().CurrentNode() == node; }));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("category_list.html?id=") + node->tag));
        QCOMPARE(ShownCaption(*catalogue), node->text);
        QVERIFY(WaitUntil([&] { return BackButton()->isEnabled(); }));

        // The page completed twice; one step leads behind both.
        ClickOn(BackButton());
        QVERIFY(WaitForAddress(welcome));
        QVERIFY(WaitUntil([&] { return !BackButton()->isEnabled(); }));
    }

    void testAddressReachedByBackIsNotRecordedTwice()
    {
        const QString first = OpenEntry(0);
        OpenEntry(1);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickOn(BackButton()); }));
        QCOMPARE(Address(), first);
        const QString other = OpenEntry(2);
        QCOMPARE(OpenEntry(0), first);
        OpenEntry(3);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickOn(BackButton()); }));
        QCOMPARE(Address(), other);
    }

    void testSamePageTwiceIsOneEntry()
    {
        const QString welcome = Address();
        OpenEntry(1);
        OpenEntry(1);
        ClickOn(BackButton());
        QVERIFY(WaitForAddress(welcome));
    }

    void testJumpInsideAPageIsNoEntry()
    {
        const QString welcome = Address();
        const QString page = OpenEntry(1);
        QVERIFY(WaitForFillAfter(*catalogue, [&] {
            catalogue->Evaluate(QStringLiteral("location.hash = 'contListRow5'"));
        }));
        QCOMPARE(Address(), page + QLatin1String("#contListRow5"));
        ClickOn(BackButton());
        QVERIFY(WaitForAddress(welcome));
    }

    void testTwoFastSearchesAreOneEntry()
    {
        const QString page = OpenEntry(1);
        QVERIFY(WaitForFillAfter(*catalogue,
                                 [&] { FastSearchFor(*catalogue, QStringLiteral("metzenbaum")); }));
        QVERIFY(WaitForFillAfter(*catalogue,
                                 [&] { FastSearchFor(*catalogue, QStringLiteral("mayo")); }));
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickOn(BackButton()); }));
        QCOMPARE(Address(), page);
    }

    void testHitsOfADetailSearchLeadBackToTheForm()
    {
        frmCatalog &window = catalogue->Window();
        const QString welcome = Address();
        SearchInForm(QStringLiteral("metzenbaum"));
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        const QString hits = Address();
        QVERIFY(BackButton()->isEnabled());
        ClickOn(BackButton());
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::SearchTab));
        QCOMPARE(Address(), hits);
        QVERIFY(window.ucSearchDetail->tbDescription->text().isEmpty());

        // The form is not recorded anew, and the next step leads behind it.
        SearchInForm(QStringLiteral("mayo"));
        ClickOn(BackButton());
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::SearchTab));
        ClickOn(BackButton());
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QVERIFY(WaitForAddress(welcome));
        QVERIFY(WaitUntil([&] { return !BackButton()->isEnabled(); }));
    }

    void testFastSearchLeavesNoBoldCategoryAndLeadsBack()
    {
        const CategoryNode *const leaf = FindLongLeaf(*catalogue);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, leaf); }));
        const QString list = Address();
        QVERIFY(WaitForFillAfter(*catalogue,
                                 [&] { FastSearchFor(*catalogue, QStringLiteral("metzenbaum")); }));
        for (const auto &node : catalogue->Window().Tree().Nodes())
            QVERIFY(!catalogue->Window().TreeViewCategories->IsBold(node.get()));
        QVERIFY(catalogue->Window().CurrentNode() == nullptr);
        // The tree stays as far open as it was.
        for (const CategoryNode *node = leaf->parent; node != nullptr; node = node->parent)
            QVERIFY(catalogue->Window().TreeViewCategories->ItemOf(node)->isExpanded());
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickOn(BackButton()); }));
        QCOMPARE(Address(), list);
    }

private:
    QAbstractButton *BackButton() { return ButtonOfScroller(*catalogue, "btnBack"); }
    QString Address() { return catalogue->Window().wbMain->Address(); }

    bool WaitForAddress(const QString &address)
    {
        return WaitUntil([&] { return catalogue->Window().Protocol().CurrentUrl() == address; });
    }

    static QString DetailsLink(const ResultTable &rows, int row)
    {
        return QStringLiteral("a[href='product_details.html?id=%1']").arg(rows.Text(row, 0));
    }

    QList<NavEntry *> Entries()
    {
        return catalogue->Window().ucNavLeft->findChildren<NavEntry *>();
    }

    /// Opens an entry of the left menu; the result is its page's address.
    QString OpenEntry(int index)
    {
        const bool isFilled = WaitForFillAfter(*catalogue, [&] { ClickOn(Entries()[index]); });
        return isFilled ? Address() : QString();
    }

    void SearchInForm(const QString &words)
    {
        frmCatalog &window = catalogue->Window();
        const QTabBar *const tabs = window.tabMain->tabBar();
        ClickOn(window.tabMain->tabBar(), tabs->tabRect(frmCatalog::SearchTab).center());
        TypeInto(window.ucSearchDetail->tbDescription, words);
        QVERIFY(WaitForFillAfter(
            *catalogue, [&] { PressKey(window.ucSearchDetail->tbDescription, Qt::Key_Return); }));
    }

    std::unique_ptr<CatalogueWindow> catalogue;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestHistory>(argc, argv);
}
#include "test_history.moc"
