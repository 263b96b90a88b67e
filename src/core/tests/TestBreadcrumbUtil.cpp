#include "core/BreadcrumbUtil.h"
#include "core/CategoryTree.h"

#include <QTest>

using namespace Tesk;

namespace {

CategoryNode Node(const char *text, const char *tag)
{
    CategoryNode node;
    node.text = QString::fromLatin1(text);
    node.tag = QString::fromLatin1(tag);
    return node;
}

void Join(CategoryNode &parent, CategoryNode &child)
{
    child.parent = &parent;
    parent.children.push_back(&child);
}

} // namespace

class TestBreadcrumbUtil : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testNoNodeGivesAnEmptyPath() { QVERIFY(BuildBreadcrumbPath(nullptr).isEmpty()); }

    void testTopLevelLeafLeadsToItsProducts()
    {
        const CategoryNode node = Node("Clamps", "17");
        const QList<Crumb> expected{
            {QStringLiteral("Clamps"), QStringLiteral("product_list.html?firstItem=1&id=17")}};
        QCOMPARE(BuildBreadcrumbPath(&node), expected);
    }

    void testThirdLevelLeafHasItsCategoriesBeforeIt()
    {
        CategoryNode top = Node("Clamps", "1");
        CategoryNode middle = Node("Curved", "2");
        CategoryNode leaf = Node("Small", "3");
        Join(top, middle);
        Join(middle, leaf);
        const QList<Crumb> expected{
            {QStringLiteral("Clamps"), QStringLiteral("category_list.html?id=1")},
            {QStringLiteral("Curved"), QStringLiteral("category_list.html?id=2")},
            {QStringLiteral("Small"), QStringLiteral("product_list.html?firstItem=1&id=3")}};
        QCOMPARE(BuildBreadcrumbPath(&leaf), expected);
    }

    void testNodeWithChildrenLeadsToItsCategories()
    {
        CategoryNode top = Node("Clamps", "1");
        CategoryNode leaf = Node("Small", "3");
        Join(top, leaf);
        const QList<Crumb> expected{
            {QStringLiteral("Clamps"), QStringLiteral("category_list.html?id=1")}};
        QCOMPARE(BuildBreadcrumbPath(&top), expected);
    }
};

QTEST_APPLESS_MAIN(TestBreadcrumbUtil)
#include "TestBreadcrumbUtil.moc"
