#include "Expected.h"
#include "FakePageContext.h"
#include "Tables.h"
#include "pages/HtmlBuilder.h"
#include "support/RecordingDocument.h"

#include <QTest>

using namespace Tesk;

class TestCategoryListPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { document = {}; }

    void testListsTheChildrenInTreeOrder();
    void testCategoryWithoutChildrenGivesAnEmptyTable();
    void testFillsTheElementsInOneGo();

private:
    void Write(const QString &categoryId);

    // The tree's order is that of its rows: the children of 20 do not stand in a row.
    const CategoryTree tree = MakeTree({
        {QStringLiteral("20"), QStringLiteral("1"), {}, QStringLiteral("Scissors")},
        {QStringLiteral("21"), QStringLiteral("2"), QStringLiteral("1"),
         QStringLiteral("Dissecting scissors")},
        {QStringLiteral("23"), QStringLiteral("3"), QStringLiteral("2"), QStringLiteral("Mayo")},
        {QStringLiteral("30"), QStringLiteral("4"), {}, QStringLiteral("Forceps")},
        {QStringLiteral("22"), QStringLiteral("5"), QStringLiteral("1"),
         QStringLiteral("Bandage scissors")},
    });
    RecordingDocument document;
};

void TestCategoryListPage::Write(const QString &categoryId)
{
    const CategoryNode *node = tree.FindByTag(categoryId);
    QVERIFY(node);
    HtmlBuilder(std::make_unique<FakePageContext>())
        .WriteCategoryList(document, node->text, tree, node);
}

void TestCategoryListPage::testListsTheChildrenInTreeOrder()
{
    Write(QStringLiteral("20"));
    QCOMPARE(document.Html(QStringLiteral("list")),
             ExpectedHtml(QStringLiteral("category_list.html")));
}

void TestCategoryListPage::testCategoryWithoutChildrenGivesAnEmptyTable()
{
    Write(QStringLiteral("30"));
    QCOMPARE(document.Html(QStringLiteral("list")),
             QStringLiteral("<table width=\"100%\"></table>"));
}

void TestCategoryListPage::testFillsTheElementsInOneGo()
{
    Write(QStringLiteral("21"));
    QCOMPARE(document.calls.size(), 1);
    QCOMPARE(document.ChangedIds(),
             QStringList({QStringLiteral("printHeader"), QStringLiteral("printFooter"),
                          QStringLiteral("caption"), QStringLiteral("list")}));
    QCOMPARE(document.Html(QStringLiteral("printHeader")),
             QStringLiteral("<img src=\"img/tlogo.gif\" border=\"0\">"
                            "<div style=\"margin-top:8px;\">Scissors\\Dissecting scissors</div>"));
    QCOMPARE(document.Html(QStringLiteral("caption")), QStringLiteral("Dissecting scissors"));
}

QTEST_APPLESS_MAIN(TestCategoryListPage)
#include "TestCategoryListPage.moc"
