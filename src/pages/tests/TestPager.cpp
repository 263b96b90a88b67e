#include "FakePageContext.h"
#include "base/Errors.h"
#include "pages/HtmlBuilder.h"

#include <QTest>

#include <utility>
#include <vector>

using namespace Tesk;

namespace {

const QString First = QStringLiteral("[1]");
const QString FastBack = QStringLiteral("<img src=\"img/goFastBefore.gif\" border=\"0\">");
const QString Back = QStringLiteral("<img src=\"img/goToBefore.gif\" border=\"0\">");
const QString Next = QStringLiteral("<img src=\"img/goToNext.gif\" border=\"0\">");
const QString FastNext = QStringLiteral("<img src=\"img/goFastNext.gif\" border=\"0\">");

/// A cell's content and the item that it leads to; 0 for the dot that leads nowhere.
using Cell = std::pair<QString, int>;
const Cell Gap{QStringLiteral("."), 0};

QString ExpectedPager(const std::vector<Cell> &cells)
{
    QString html = QStringLiteral(
        "<table cellpadding=\"0\" cellspacing=\"0\" border=\"0\" align=\"center\"><tr>");
    for (const auto &[content, item] : cells) {
        if (item == 0) {
            html += QStringLiteral("<td align=\"center\" valign=\"center\" width=\"25\"  "
                                   "valign=\"center\">.</td>");
        } else {
            html += QStringLiteral("<td align=\"center\" valign=\"center\" width=\"25\"><a "
                                   "class=\"prodItem\" href=\"http://x/list.html?from=") +
                    QString::number(item) + QStringLiteral("&id=7\">") + content +
                    QStringLiteral("</a></td>");
        }
    }
    return html + QStringLiteral("</tr></table>");
}

QString Page(int number)
{
    return QString::number(number);
}

QString Current(int number)
{
    return QStringLiteral("(%1)").arg(number);
}

QString Last(int number)
{
    return QStringLiteral("[%1]").arg(number);
}

QString Pager(qint16 firstItem, qint16 count)
{
    return HtmlBuilder(std::make_unique<FakePageContext>())
        .BuildPager(firstItem, count, QStringLiteral("http://x/list.html"), QStringLiteral("from"),
                    QStringLiteral("&id=7"));
}

} // namespace

class TestPager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testFirstPageOf45Items();
    void testLastPageOf45Items();
    void testOneItemMoreThanAPageMakesTwoPages();
    void testExactMultipleOfThePageSizeHasNoEmptyLastPage();
    void testFastBackFromPage6LeadsFivePagesBack();
    void testFastBackUpToPage5LeadsToTheStart();
    void testFastForwardLeadsFivePagesOn();
    void testFastForwardFromTheLastFivePagesLeadsToTheEnd();
    void testFirstItemOffThePageBoundaryStaysOff();
    void testFirstItemThatEndsAPageBelongsToThatPage();
    void testItemNumberBeyond16BitsIsAnError();
    void testLargestCountHasItsLastPage();
};

void TestPager::testFirstPageOf45Items()
{
    QCOMPARE(Pager(1, 45), ExpectedPager({{First, 1},
                                          {FastBack, 1},
                                          {Back, 1},
                                          Gap,
                                          Gap,
                                          {Current(1), 1},
                                          {Page(2), 21},
                                          {Page(3), 41},
                                          {Next, 21},
                                          {FastNext, 41},
                                          {Last(3), 41}}));
}

void TestPager::testLastPageOf45Items()
{
    QCOMPARE(Pager(41, 45), ExpectedPager({{First, 1},
                                           {FastBack, 1},
                                           {Back, 21},
                                           {Page(1), 1},
                                           {Page(2), 21},
                                           {Current(3), 41},
                                           Gap,
                                           Gap,
                                           {Next, 3},
                                           {FastNext, 41},
                                           {Last(3), 41}}));
}

void TestPager::testOneItemMoreThanAPageMakesTwoPages()
{
    QCOMPARE(Pager(1, 21), ExpectedPager({{First, 1},
                                          {FastBack, 1},
                                          {Back, 1},
                                          Gap,
                                          Gap,
                                          {Current(1), 1},
                                          {Page(2), 21},
                                          Gap,
                                          {Next, 21},
                                          {FastNext, 21},
                                          {Last(2), 21}}));
}

void TestPager::testExactMultipleOfThePageSizeHasNoEmptyLastPage()
{
    QCOMPARE(Pager(21, 40), ExpectedPager({{First, 1},
                                           {FastBack, 1},
                                           {Back, 1},
                                           Gap,
                                           {Page(1), 1},
                                           {Current(2), 21},
                                           Gap,
                                           Gap,
                                           {Next, 2},
                                           {FastNext, 21},
                                           {Last(2), 21}}));
}

void TestPager::testFastBackFromPage6LeadsFivePagesBack()
{
    // Page 6 of 10 stands behind the last page from which a fast step forward is possible.
    QCOMPARE(Pager(101, 200), ExpectedPager({{First, 1},
                                             {FastBack, 1},
                                             {Back, 81},
                                             {Page(4), 61},
                                             {Page(5), 81},
                                             {Current(6), 101},
                                             {Page(7), 121},
                                             {Page(8), 141},
                                             {Next, 121},
                                             {FastNext, 181},
                                             {Last(10), 181}}));
    // 101 - 100 is 1, as for every page before; an item off the boundary shows the difference.
    QVERIFY(Pager(115, 200).contains(QStringLiteral("from=15&id=7\">") + FastBack));
    QVERIFY(Pager(121, 200).contains(QStringLiteral("from=21&id=7\">") + FastBack));
}

void TestPager::testFastBackUpToPage5LeadsToTheStart()
{
    QVERIFY(Pager(100, 200).contains(QStringLiteral("from=1&id=7\">") + FastBack));
    QVERIFY(Pager(81, 200).contains(QStringLiteral("from=1&id=7\">") + FastBack));
}

void TestPager::testFastForwardLeadsFivePagesOn()
{
    QCOMPARE(Pager(81, 200), ExpectedPager({{First, 1},
                                            {FastBack, 1},
                                            {Back, 61},
                                            {Page(3), 41},
                                            {Page(4), 61},
                                            {Current(5), 81},
                                            {Page(6), 101},
                                            {Page(7), 121},
                                            {Next, 101},
                                            {FastNext, 181},
                                            {Last(10), 181}}));
    QVERIFY(Pager(61, 200).contains(QStringLiteral("from=161&id=7\">") + FastNext));
    QVERIFY(Pager(85, 200).contains(QStringLiteral("from=185&id=7\">") + FastNext));
}

void TestPager::testFastForwardFromTheLastFivePagesLeadsToTheEnd()
{
    QVERIFY(Pager(105, 200).contains(QStringLiteral("from=181&id=7\">") + FastNext));
}

void TestPager::testFirstItemOffThePageBoundaryStaysOff()
{
    QCOMPARE(Pager(25, 65), ExpectedPager({{First, 1},
                                           {FastBack, 1},
                                           {Back, 5},
                                           Gap,
                                           {Page(1), 5},
                                           {Current(2), 25},
                                           {Page(3), 45},
                                           {Page(4), 65},
                                           {Next, 45},
                                           {FastNext, 61},
                                           {Last(4), 61}}));
}

void TestPager::testFirstItemThatEndsAPageBelongsToThatPage()
{
    QCOMPARE(Pager(40, 60), ExpectedPager({{First, 1},
                                           {FastBack, 1},
                                           {Back, 20},
                                           Gap,
                                           {Page(1), 20},
                                           {Current(2), 40},
                                           {Page(3), 60},
                                           Gap,
                                           {Next, 60},
                                           {FastNext, 41},
                                           {Last(3), 41}}));
}

void TestPager::testItemNumberBeyond16BitsIsAnError()
{
    // Two pages on from item 32741 would be item 32781.
    QVERIFY_THROWS_EXCEPTION(ConversionError, Pager(32741, 32767));
}

void TestPager::testLargestCountHasItsLastPage()
{
    const QString pager = Pager(1, 32767);
    QVERIFY(pager.endsWith(QStringLiteral("from=32761&id=7\">[1639]</a></td></tr></table>")));
}

QTEST_APPLESS_MAIN(TestPager)
#include "TestPager.moc"
