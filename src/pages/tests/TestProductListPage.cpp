#include "Expected.h"
#include "FakePageContext.h"
#include "Tables.h"
#include "base/Errors.h"
#include "pages/HtmlBuilder.h"
#include "support/RecordingDocument.h"

#include <QRegularExpression>
#include <QTest>

using namespace Tesk;

namespace {

const QString Spacer = QStringLiteral("<tr><td>&nbsp;</td></tr>");
const QString PagerStart =
    QStringLiteral("<table cellpadding=\"0\" cellspacing=\"0\" border=\"0\" align=\"center\">");

const Product Scissors{.availability = QStringLiteral("0.5")};
const Product BasicSet{.id = QStringLiteral("501"),
                       .artNr = QStringLiteral("TS 90/200"),
                       .isSet = QStringLiteral("True"),
                       .name = QStringLiteral("Basic set")};
const Product LargeSet{.id = QStringLiteral("502"),
                       .artNr = QStringLiteral("TS 90/201"),
                       .isSet = QStringLiteral("True"),
                       .availability = QStringLiteral("0"),
                       .name = QStringLiteral("Large set")};
const Product BoneSet{.id = QStringLiteral("503"),
                      .artNr = QStringLiteral("TS 91/100"),
                      .isSet = QStringLiteral("True"),
                      .groupId = QStringLiteral("9"),
                      .name = QStringLiteral("Bone set")};

/// The numbers in the ids of the list's rows, in their order.
QList<int> RowNumbers(const QString &html)
{
    static const QRegularExpression row(QStringLiteral("<tr id=\"contListRow(\\d+)\""));
    QList<int> numbers;
    auto matches = row.globalMatch(html);
    while (matches.hasNext())
        numbers.append(matches.next().captured(1).toInt());
    return numbers;
}

QList<int> Range(int from, int to)
{
    QList<int> numbers;
    for (int number = from; number <= to; ++number)
        numbers.append(number);
    return numbers;
}

} // namespace

class TestProductListPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testCategoryOfSetsShowsEveryColumn();
    void testCategoryOfSetsWithoutPriceListHasNoPriceColumn();
    void testSetsAmongSingleProductsHaveFewerCells();
    void testSecondPageContinuesTheRowNumbers();
    void testPriceListDoesNotChangeAMixedList();
    void testTwentyProductsHaveNoPager();
    void testTwentyOneProductsHaveAPager();
    void testFortyProductsEndOnTheSecondPage();
    void testLastPageOf45EndsWithTheLastProduct();
    void testSearchResultsHaveAnEmptyIdInTheirLinks();
    void testEveryPageBeginsWithASpacer();
    void testSpacerStandsBetweenGroups();
    void testEmptyListSaysSo();
    void testFillsTheElementsInOneGo();
    void testMissingColumnsGiveEmptyCells();
    void testAvailabilityDecidesTheStockCell_data();
    void testAvailabilityDecidesTheStockCell();
    void testAvailabilityThatIsNoNumberIsAnError_data();
    void testAvailabilityThatIsNoNumberIsAnError();
    void testFirstItemBehindTheListGivesCaptionsOnly();
    void testFirstItemNear16BitLimitIsAnError();
    void testTextsWithPlaceholdersStayAsTheyAre();

private:
    QString List(const ResultTable &table, qint16 firstItem, bool hasSingleProducts);

    std::unique_ptr<FakePageContext> context;
    RecordingDocument document;
};

void TestProductListPage::init()
{
    context = std::make_unique<FakePageContext>();
    document = {};
}

/// Writes the list of category 12 and returns what stands in its element.
QString TestProductListPage::List(const ResultTable &table, qint16 firstItem,
                                  bool hasSingleProducts)
{
    HtmlBuilder(std::make_unique<FakePageContext>(*context))
        .WriteProductList(document, QStringLiteral("Scissors"), table, firstItem,
                          QStringLiteral("12"), hasSingleProducts, nullptr);
    return document.Html(QStringLiteral("list"));
}

void TestProductListPage::testCategoryOfSetsShowsEveryColumn()
{
    context->hasPriceList = true;
    context->prices = {{QStringLiteral("TS 90/200"), QStringLiteral("612,00&nbsp;EUR")},
                       {QStringLiteral("TS 91/100"), QStringLiteral("98,50&nbsp;EUR")}};
    QCOMPARE(List(ProductTable({BasicSet, LargeSet, BoneSet}), 1, false),
             ExpectedHtml(QStringLiteral("list_sets_with_prices.html")));
}

void TestProductListPage::testCategoryOfSetsWithoutPriceListHasNoPriceColumn()
{
    context->sizeColumn = QStringLiteral("p.sInch");
    context->prices = {{QStringLiteral("TS 90/200"), QStringLiteral("612,00&nbsp;EUR")}};
    QCOMPARE(List(ProductTable({BasicSet}), 1, false),
             ExpectedHtml(QStringLiteral("list_sets_without_prices.html")));
}

void TestProductListPage::testSetsAmongSingleProductsHaveFewerCells()
{
    QCOMPARE(List(ProductTable({Scissors, BasicSet}), 1, true),
             ExpectedHtml(QStringLiteral("list_mixed.html")));
}

void TestProductListPage::testSecondPageContinuesTheRowNumbers()
{
    QCOMPARE(List(ManyProducts(21), 21, true),
             ExpectedHtml(QStringLiteral("list_second_page_of_21.html")));
}

void TestProductListPage::testPriceListDoesNotChangeAMixedList()
{
    context->hasPriceList = true;
    context->prices = {{QStringLiteral("AB 12/115"), QStringLiteral("38,20&nbsp;EUR")},
                       {QStringLiteral("TS 90/200"), QStringLiteral("612,00&nbsp;EUR")}};
    QCOMPARE(List(ProductTable({Scissors, BasicSet}), 1, true),
             ExpectedHtml(QStringLiteral("list_mixed.html")));
}

void TestProductListPage::testTwentyProductsHaveNoPager()
{
    const QString list = List(ManyProducts(20), 1, true);
    QVERIFY(
        list.startsWith(QStringLiteral("<table cellpadding=\"0\" cellspacing=\"0\" border=\"0\" "
                                       "width=\"100%\" align=\"center\"><tr><td></td>")));
    QVERIFY(!list.contains(QStringLiteral("firstItem=")));
    QCOMPARE(RowNumbers(list), Range(1, 20));
}

void TestProductListPage::testTwentyOneProductsHaveAPager()
{
    const QString list = List(ManyProducts(21), 1, true);
    QVERIFY(list.startsWith(PagerStart));
    QVERIFY(list.contains(QStringLiteral("firstItem=21&id=12\">[2]</a></td></tr></table><br>")));
    QCOMPARE(RowNumbers(list), Range(1, 20));
}

void TestProductListPage::testFortyProductsEndOnTheSecondPage()
{
    const QString list = List(ManyProducts(40), 21, true);
    QVERIFY(list.contains(QStringLiteral("firstItem=21&id=12\">[2]</a></td></tr></table><br>")));
    QCOMPARE(RowNumbers(list), Range(21, 40));
}

void TestProductListPage::testLastPageOf45EndsWithTheLastProduct()
{
    const QString list = List(ManyProducts(45), 41, true);
    QVERIFY(list.contains(QStringLiteral("firstItem=41&id=12\">[3]</a></td></tr></table><br>")));
    QCOMPARE(RowNumbers(list), Range(41, 45));
}

void TestProductListPage::testSearchResultsHaveAnEmptyIdInTheirLinks()
{
    HtmlBuilder(std::make_unique<FakePageContext>(*context))
        .WriteProductList(document, QStringLiteral("Found"), ManyProducts(21), 1, {}, true,
                          nullptr);
    QVERIFY(document.Html(QStringLiteral("list"))
                .contains(QStringLiteral("product_list.html?firstItem=21&id=\">2</a>")));
}

void TestProductListPage::testEveryPageBeginsWithASpacer()
{
    const QString secondPage = List(ManyProducts(25), 21, true);
    QCOMPARE(secondPage.count(Spacer), 1);
    QVERIFY(secondPage.contains(
        QStringLiteral("<td class=\"prodCaption\"></td></tr>%1<tr id=\"contListRow21\"")
            .arg(Spacer)));
}

void TestProductListPage::testSpacerStandsBetweenGroups()
{
    const QString list = List(ProductTable({BasicSet, LargeSet, BoneSet}), 1, false);
    QCOMPARE(list.count(Spacer), 2);
    QVERIFY(list.contains(QStringLiteral("</tr><tr id=\"contListRow2\"")));
    QVERIFY(list.contains(QStringLiteral("</tr>%1<tr id=\"contListRow3\"").arg(Spacer)));
}

void TestProductListPage::testEmptyListSaysSo()
{
    QCOMPARE(List({}, 1, false),
             QStringLiteral("<div class=\"prodCaption\">&nbsp;T(productListNoProducts)</div>"));
    QCOMPARE(document.Html(QStringLiteral("caption")), QStringLiteral("Scissors"));
    QCOMPARE(document.Html(QStringLiteral("printHeader")),
             QStringLiteral("<img src=\"img/tlogo.gif\" border=\"0\">"));
}

void TestProductListPage::testFillsTheElementsInOneGo()
{
    const CategoryTree tree =
        MakeTree({{QStringLiteral("12"), QStringLiteral("1"), {}, QStringLiteral("Scissors")}});
    HtmlBuilder(std::make_unique<FakePageContext>(*context), [] { return QDate(2031, 5, 2); })
        .WriteProductList(document, QStringLiteral("Scissors & more"), ProductTable({Scissors}), 1,
                          QStringLiteral("12"), true, tree.Nodes().front().get());
    QCOMPARE(document.calls.size(), 1);
    QCOMPARE(document.ChangedIds(),
             QStringList({QStringLiteral("printHeader"), QStringLiteral("printFooter"),
                          QStringLiteral("caption"), QStringLiteral("list")}));
    QCOMPARE(document.Html(QStringLiteral("printHeader")),
             QStringLiteral("<img src=\"img/tlogo.gif\" border=\"0\">"
                            "<div style=\"margin-top:8px;\">Scissors</div>"));
    QCOMPARE(document.Html(QStringLiteral("printFooter")),
             QStringLiteral("&nbsp;&copy; 2031 T(commonAddress)"));
    QCOMPARE(document.Html(QStringLiteral("caption")), QStringLiteral("Scissors & more"));
}

void TestProductListPage::testMissingColumnsGiveEmptyCells()
{
    ResultTable table({QStringLiteral("p.ID"), QStringLiteral("p.availability")});
    table.AddRow({QStringLiteral("7"), QStringLiteral("1")});
    const QString list = List(table, 1, true);
    QVERIFY(list.contains(QStringLiteral("class=\"prodItem\">&nbsp;</td>")));
    QVERIFY(list.contains(QStringLiteral("href=\"product_details.html?id=7\"></a>&nbsp;</td>")));
    QVERIFY(
        list.contains(QStringLiteral("<td width=\"50\" class=\"prodItem\" valign=\"top\"></td>"
                                     "<td width=\"50\" class=\"prodItem\" valign=\"top\"></td>")));
}

void TestProductListPage::testAvailabilityDecidesTheStockCell_data()
{
    QTest::addColumn<QString>("availability");
    QTest::addColumn<bool>("inStock");
    QTest::newRow("one") << QStringLiteral("1") << true;
    QTest::newRow("fraction") << QStringLiteral("0.25") << true;
    QTest::newRow("zero") << QStringLiteral("0") << false;
    QTest::newRow("zero with decimals") << QStringLiteral("0.0") << false;
    QTest::newRow("negative") << QStringLiteral("-3") << false;
}

void TestProductListPage::testAvailabilityDecidesTheStockCell()
{
    QFETCH(const QString, availability);
    QFETCH(const bool, inStock);
    Product product;
    product.availability = availability;
    const QString list = List(ProductTable({product}), 1, true);
    QCOMPARE(list.contains(QStringLiteral("img/contIconAbLager.gif")), inStock);
    QCOMPARE(list.contains(QStringLiteral("img/contIconNichtAbLager.gif")), !inStock);
}

void TestProductListPage::testAvailabilityThatIsNoNumberIsAnError_data()
{
    QTest::addColumn<QString>("availability");
    QTest::newRow("empty") << QString();
    QTest::newRow("word") << QStringLiteral("yes");
    QTest::newRow("decimal comma") << QStringLiteral("1,5");
}

void TestProductListPage::testAvailabilityThatIsNoNumberIsAnError()
{
    QFETCH(const QString, availability);
    Product product;
    product.availability = availability;
    QVERIFY_THROWS_EXCEPTION(ConversionError, List(ProductTable({product}), 1, true));
    QVERIFY(document.calls.isEmpty());
}

void TestProductListPage::testFirstItemBehindTheListGivesCaptionsOnly()
{
    const QString list = List(ProductTable({Scissors}), 21, true);
    QCOMPARE(RowNumbers(list), QList<int>());
    QVERIFY(list.endsWith(QStringLiteral("<td class=\"prodCaption\"></td></tr></table>")));
}

void TestProductListPage::testFirstItemNear16BitLimitIsAnError()
{
    QVERIFY_THROWS_EXCEPTION(ConversionError, List(ProductTable({Scissors}), 32750, true));
}

void TestProductListPage::testTextsWithPlaceholdersStayAsTheyAre()
{
    Product product;
    product.artNr = QStringLiteral("%1 %2 %3");
    product.name = QStringLiteral("50 %1 & <b>");
    const QString list = List(ProductTable({product}), 1, true);
    QVERIFY(list.contains(QStringLiteral("class=\"prodItem\">%1 %2 %3&nbsp;</td>")));
    QVERIFY(list.contains(QStringLiteral("colspan=\"4\">%1 %2 %3</td>")));
    QVERIFY(list.contains(QStringLiteral("?id=101\">50 %1 & <b></a>&nbsp;</td>")));
}

QTEST_APPLESS_MAIN(TestProductListPage)
#include "TestProductListPage.moc"
