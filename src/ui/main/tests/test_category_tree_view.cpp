#include "core/CategoryTree.h"
#include "core/ResultTable.h"
#include "ui/main/CategoryTreeView.h"

#include <QTest>

using namespace Tesk;

namespace {

ResultTable Categories(const QString &suffix)
{
    ResultTable table({QStringLiteral("ID"), QStringLiteral("TREE_ID"), QStringLiteral("parent"),
                       QStringLiteral("title")});
    const auto add = [&](const char *id, const char *treeId, const char *parent,
                         const char *title) {
        table.AddRow({QLatin1String(id), QLatin1String(treeId), QLatin1String(parent),
                      QLatin1String(title) + suffix});
    };
    add("1", "501", "", "Scissors");
    add("2", "502", "501", "Dissecting");
    add("3", "503", "502", "Curved");
    add("4", "504", "", "Forceps");
    add("5", "505", "504", "Tissue");
    return table;
}

} // namespace

class TestCategoryTreeView final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        tree = std::make_unique<CategoryTree>();
        tree->Fill(Categories(QString()));
        view = std::make_unique<CategoryTreeView>();
        view->Show(*tree);
        view->resize(400, 300);
        view->show();
        clicks.clear();
        connect(view.get(), &CategoryTreeView::NodeClick, this,
                [this](const CategoryNode *node) { clicks.push_back(node); });
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    }

    void testTopLevelEntriesStartExpanded()
    {
        QVERIFY(Item("501")->isExpanded());
        QVERIFY(Item("504")->isExpanded());
        QVERIFY(!Item("502")->isExpanded());
    }

    void testRelabellingKeepsStateAndOrder()
    {
        view->SetBold(Node("502"), true);
        view->ExpandNodePath(Node("502"));
        tree->Fill(Categories(QStringLiteral(" (fr)")));
        view->Show(*tree);
        QCOMPARE(view->topLevelItemCount(), 2);
        QCOMPARE(Item("502")->text(0), QStringLiteral("Dissecting (fr)"));
        QVERIFY(view->IsBold(Node("502")));
        QVERIFY(Item("502")->isExpanded());
    }

    void testExpandAndCollapseReachTheTop()
    {
        view->ExpandNodePath(Node("503"));
        QVERIFY(Item("501")->isExpanded());
        QVERIFY(Item("502")->isExpanded());
        view->CollapseNodePath(Node("503"));
        QVERIFY(!Item("501")->isExpanded());
        QVERIFY(!Item("502")->isExpanded());
        QVERIFY(Item("504")->isExpanded());
        view->ExpandNodePath(Node("502"));
        QVERIFY(Item("501")->isExpanded());
        QVERIFY(Item("502")->isExpanded());
    }

    void testMouseClickReportsTheNode()
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualItemRect(Item("505")).center());
        QCOMPARE(clicks, std::vector{Node("505")});
    }

    void testEnterReportsTheCurrentNode()
    {
        view->SetCurrent(Node("504"));
        QVERIFY(clicks.empty());
        QTest::keyClick(view.get(), Qt::Key_Return);
        QCOMPARE(clicks, std::vector{Node("504")});
    }

private:
    const CategoryNode *Node(const char *treeId) const
    {
        return tree->FindByKey(u'C' + QLatin1String(treeId));
    }
    QTreeWidgetItem *Item(const char *treeId) const { return view->ItemOf(Node(treeId)); }

    std::unique_ptr<CategoryTree> tree;
    std::unique_ptr<CategoryTreeView> view;
    std::vector<const CategoryNode *> clicks;
};

QTEST_MAIN(TestCategoryTreeView)
#include "test_category_tree_view.moc"
