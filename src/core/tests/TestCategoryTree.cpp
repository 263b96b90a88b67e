#include "base/Errors.h"
#include "core/CategoryTree.h"
#include "core/ResultTable.h"

#include <QTest>

using namespace Tesk;

namespace {

/// Rows of ID, TREE_ID, parent and title.
ResultTable Categories(const std::vector<QStringList> &rows)
{
    ResultTable table({QStringLiteral("ID"), QStringLiteral("TREE_ID"), QStringLiteral("parent"),
                       QStringLiteral("title_en")});
    for (const QStringList &row : rows)
        table.AddRow({row.begin(), row.end()});
    return table;
}

QStringList Row(const char *id, const char *treeId, const char *parent, const char *title)
{
    return {QString::fromLatin1(id), QString::fromLatin1(treeId), QString::fromLatin1(parent),
            QString::fromLatin1(title)};
}

CategoryTree SampleTree()
{
    CategoryTree tree;
    tree.Fill(Categories({Row("70", "1", "", "Scissors"), Row("50", "2", "1", "Curved"),
                          Row("60", "3", "2", "Blunt"), Row("10", "4", "", "Clamps")}));
    return tree;
}

QStringList Texts(const CategoryTree &tree)
{
    QStringList texts;
    for (const auto &node : tree.Nodes())
        texts.append(node->text);
    return texts;
}

} // namespace

class TestCategoryTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testNewTreeIsEmpty() { QVERIFY(CategoryTree().IsEmpty()); }

    void testEmptyResultLeavesTheTreeEmpty()
    {
        CategoryTree tree;
        tree.Fill(ResultTable());
        QVERIFY(tree.IsEmpty());
    }

    void testNodesTakeKeyTextAndTag()
    {
        const CategoryTree tree = SampleTree();
        const CategoryNode &node = *tree.Nodes().at(1);
        QCOMPARE(node.key, QStringLiteral("C2"));
        QCOMPARE(node.text, QStringLiteral("Curved"));
        QCOMPARE(node.tag, QStringLiteral("50"));
    }

    void testNodesKeepTheOrderOfTheRows()
    {
        QCOMPARE(Texts(SampleTree()),
                 QStringList({QStringLiteral("Scissors"), QStringLiteral("Curved"),
                              QStringLiteral("Blunt"), QStringLiteral("Clamps")}));
    }

    void testParentIsFoundByTreeIdNotById()
    {
        CategoryTree tree;
        // The second row's parent "5" is the first row's TREE_ID and the third row's ID.
        tree.Fill(Categories(
            {Row("1", "5", "", "Top"), Row("2", "6", "5", "Below"), Row("5", "7", "", "Other")}));
        QCOMPARE(tree.FindByKey(QStringLiteral("C6"))->parent->text, QStringLiteral("Top"));
        QVERIFY(!tree.FindByKey(QStringLiteral("C7"))->HasChildren());
    }

    void testEmptyParentMarksATopLevelNode()
    {
        const CategoryTree tree = SampleTree();
        QVERIFY(!tree.FindByKey(QStringLiteral("C1"))->parent);
        QVERIFY(!tree.FindByKey(QStringLiteral("C4"))->parent);
    }

    void testChildrenKeepTheOrderOfTheRows()
    {
        CategoryTree tree;
        tree.Fill(Categories(
            {Row("1", "1", "", "Top"), Row("2", "9", "1", "Z"), Row("3", "8", "1", "A")}));
        const CategoryNode *top = tree.FindByTag(QStringLiteral("1"));
        QCOMPARE(top->children.size(), size_t(2));
        QCOMPARE(top->children.at(0)->text, QStringLiteral("Z"));
        QCOMPARE(top->children.at(1)->text, QStringLiteral("A"));
    }

    void testNullParentIsATopLevelNode()
    {
        ResultTable table({QStringLiteral("ID"), QStringLiteral("TREE_ID"),
                           QStringLiteral("parent"), QStringLiteral("title_en")});
        table.AddRow({QStringLiteral("1"), QStringLiteral("1"), QString(), QStringLiteral("Top")});
        CategoryTree tree;
        tree.Fill(table);
        QVERIFY(!tree.Nodes().at(0)->parent);
    }

    void testUnknownParentIsAnError()
    {
        CategoryTree tree;
        QVERIFY_THROWS_EXCEPTION(
            SubscriptError,
            tree.Fill(Categories({Row("1", "1", "", "Top"), Row("2", "2", "9", "Lost")})));
        QVERIFY(tree.IsEmpty());
    }

    void testParentBehindItsChildIsAnError()
    {
        CategoryTree tree;
        QVERIFY_THROWS_EXCEPTION(SubscriptError, tree.Fill(Categories({Row("2", "2", "1", "Below"),
                                                                       Row("1", "1", "", "Top")})));
    }

    void testDoubledTreeIdIsAnError()
    {
        CategoryTree tree;
        QVERIFY_THROWS_EXCEPTION(
            DuplicateKeyError,
            tree.Fill(Categories({Row("1", "1", "", "Top"), Row("2", "1", "", "Other")})));
    }

    void testSecondFillRelabelsAndKeepsTheOrder()
    {
        CategoryTree tree = SampleTree();
        const CategoryNode *curved = tree.FindByKey(QStringLiteral("C2"));
        tree.Fill(Categories({Row("11", "4", "", "Klemmen"), Row("71", "1", "", "Scheren"),
                              Row("51", "2", "1", "Gebogen"), Row("61", "3", "2", "Stumpf")}));
        QCOMPARE(Texts(tree), QStringList({QStringLiteral("Scheren"), QStringLiteral("Gebogen"),
                                           QStringLiteral("Stumpf"), QStringLiteral("Klemmen")}));
        QCOMPARE(tree.FindByKey(QStringLiteral("C2")), curved);
        QCOMPARE(curved->tag, QStringLiteral("50"));
    }

    void testSecondFillWithoutRowsChangesNothing()
    {
        CategoryTree tree = SampleTree();
        tree.Fill(ResultTable());
        QCOMPARE(Texts(tree), Texts(SampleTree()));
    }

    void testSecondFillWithAnUnknownCategoryIsAnError()
    {
        CategoryTree tree = SampleTree();
        QVERIFY_THROWS_EXCEPTION(SubscriptError, tree.Fill(Categories({Row("1", "9", "", "New")})));
    }

    void testFindByTagGivesTheFirstNode()
    {
        CategoryTree tree;
        tree.Fill(Categories({Row("7", "1", "", "First"), Row("7", "2", "", "Second")}));
        QCOMPARE(tree.FindByTag(QStringLiteral("7"))->text, QStringLiteral("First"));
        QVERIFY(!tree.FindByTag(QStringLiteral("8")));
        QVERIFY(!tree.FindByKey(QStringLiteral("C8")));
    }

    void testFullPathJoinsTheTitles()
    {
        const CategoryTree tree = SampleTree();
        QCOMPARE(tree.FindByTag(QStringLiteral("70"))->FullPath(), QStringLiteral("Scissors"));
        QCOMPARE(tree.FindByTag(QStringLiteral("60"))->FullPath(),
                 QStringLiteral("Scissors\\Curved\\Blunt"));
    }

    void testSecondLevelAncestor()
    {
        const CategoryTree tree = SampleTree();
        const CategoryNode *curved = tree.FindByTag(QStringLiteral("50"));
        QVERIFY(!tree.FindByTag(QStringLiteral("70"))->SecondLevelAncestor());
        QCOMPARE(curved->SecondLevelAncestor(), curved);
        QCOMPARE(tree.FindByTag(QStringLiteral("60"))->SecondLevelAncestor(), curved);
    }
};

QTEST_APPLESS_MAIN(TestCategoryTree)
#include "TestCategoryTree.moc"
