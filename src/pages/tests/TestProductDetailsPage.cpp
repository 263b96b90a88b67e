#include "Expected.h"
#include "FakePageContext.h"
#include "Tables.h"
#include "base/Errors.h"
#include "pages/HtmlBuilder.h"
#include "support/RecordingDocument.h"

#include <QTest>

using namespace Tesk;

namespace {

struct Picture
{
    QString name;
    QString scale = QStringLiteral("0");
};

ResultTable Details(const QString &helpId, const Picture &first, const Picture &second,
                    const Picture &third)
{
    ResultTable table(
        {QStringLiteral("p.ID"), QStringLiteral("p.artNr"), QStringLiteral("p.isSet"),
         QStringLiteral("p.sCm"), QStringLiteral("p.sInch"), QStringLiteral("p.helpId"),
         QStringLiteral("p.filePath"), QStringLiteral("p.img1"), QStringLiteral("p.img1Scale"),
         QStringLiteral("p.img2"), QStringLiteral("p.img2Scale"), QStringLiteral("p.img3"),
         QStringLiteral("p.img3Scale"), QStringLiteral("l.name"), QStringLiteral("l.form")});
    table.AddRow({QStringLiteral("145"), QStringLiteral("AB 12/145"), QStringLiteral("False"),
                  QStringLiteral("14,5 cm"), QStringLiteral("5 3/4 in"), helpId,
                  QStringLiteral("/sc"), first.name, first.scale, second.name, second.scale,
                  third.name, third.scale, QStringLiteral("Metzenbaum scissors"),
                  QStringLiteral("curved, blunt")});
    return table;
}

const QString ImageStart =
    QStringLiteral("<td class=\"prodItem\"><img src=\"mk:@MSITStore:C:\\My "
                   "Katalog\\resources.chm::/Grafiken/gross/sc/a.gif\"><br>");

} // namespace

class TestProductDetailsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testFactsWithPriceDocumentAndHelp();
    void testFactsWithNoneOfThem();
    void testPriceListWithoutThePriceGivesAnEmptyCell();
    void testThreePicturesWithTheirScales();
    void testOnePictureGivesOneCell();
    void testWithoutPicturesTheTableIsEmpty();
    void testEmptyScaleCountsAsZero();
    void testScaleThatIsNoNumberIsAnErrorEvenWithoutPicture();
    void testTitleAndFactsStandWhenAScaleFails();
    void testMissingProductIsAnErrorAndWritesNothing();
    void testClearsTheListAndShowsThePicturesAgain();
    void testElementsInTheirOrder();
    void testImageCellScale_data();
    void testImageCellScale();
    void testImageCellWithoutPictureIsEmpty();
    void testFindsTheFirstRowOfAnId();
    void testUnknownIdIsRowZero();

private:
    void Write(const ResultTable &table);

    std::unique_ptr<FakePageContext> context;
    RecordingDocument document;
};

void TestProductDetailsPage::init()
{
    context = std::make_unique<FakePageContext>();
    document = {};
}

void TestProductDetailsPage::Write(const ResultTable &table)
{
    HtmlBuilder(std::make_unique<FakePageContext>(*context))
        .WriteProductDetails(document, table, {}, nullptr);
}

void TestProductDetailsPage::testFactsWithPriceDocumentAndHelp()
{
    context->hasPriceList = true;
    context->prices = {{QStringLiteral("AB 12/145"), QStringLiteral("41,60&nbsp;EUR")}};
    context->documents = {
        {QStringLiteral("AB 12/145"), QStringLiteral("file:///C:/My Katalog/PDF/AB 12_145.pdf")}};
    Write(Details(QStringLiteral("xscissors"), {}, {}, {}));
    QCOMPARE(document.Html(QStringLiteral("productTitle")), QStringLiteral("Metzenbaum scissors"));
    QCOMPARE(document.Html(QStringLiteral("productDetails")),
             ExpectedHtml(QStringLiteral("details_with_everything.html")));
}

void TestProductDetailsPage::testFactsWithNoneOfThem()
{
    context->sizeColumn = QStringLiteral("p.sInch");
    Write(Details({}, {}, {}, {}));
    QCOMPARE(document.Html(QStringLiteral("productDetails")),
             ExpectedHtml(QStringLiteral("details_with_nothing.html")));
}

void TestProductDetailsPage::testPriceListWithoutThePriceGivesAnEmptyCell()
{
    context->hasPriceList = true;
    Write(Details({}, {}, {}, {}));
    QVERIFY(document.Html(QStringLiteral("productDetails"))
                .contains(QStringLiteral(
                    "curved, blunt</td><td width=\"50\" class=\"prodItem\" valign=\"top\"></td>"
                    "<td width=\"25\" valign=\"top\"><a href=\"javascript:setStatusbar(145)\">")));
}

void TestProductDetailsPage::testThreePicturesWithTheirScales()
{
    Write(Details({}, {QStringLiteral("mb145.gif"), QStringLiteral("1")},
                  {QStringLiteral("mb145_tip.gif"), QStringLiteral("3")},
                  {QStringLiteral("mb145_ring.gif"), QStringLiteral("0.25")}));
    QCOMPARE(document.Html(QStringLiteral("productImages")),
             ExpectedHtml(QStringLiteral("details_images.html")));
}

void TestProductDetailsPage::testOnePictureGivesOneCell()
{
    Write(Details({}, {QStringLiteral("a.gif"), QStringLiteral("0.5")}, {}, {}));
    QCOMPARE(
        document.Html(QStringLiteral("productImages")),
        QStringLiteral("<table><tr>%1%2</td></tr></table>").arg(ImageStart, QStringLiteral("1:2")));
}

void TestProductDetailsPage::testWithoutPicturesTheTableIsEmpty()
{
    Write(Details({}, {}, {}, {}));
    QCOMPARE(document.Html(QStringLiteral("productImages")),
             QStringLiteral("<table><tr></tr></table>"));
}

void TestProductDetailsPage::testEmptyScaleCountsAsZero()
{
    Write(Details({}, {QStringLiteral("a.gif"), {}}, {{}, {}}, {{}, {}}));
    QCOMPARE(document.Html(QStringLiteral("productImages")),
             QStringLiteral("<table><tr>%1</td></tr></table>").arg(ImageStart));
}

void TestProductDetailsPage::testScaleThatIsNoNumberIsAnErrorEvenWithoutPicture()
{
    QVERIFY_THROWS_EXCEPTION(ConversionError,
                             Write(Details({}, {QStringLiteral("a.gif"), QStringLiteral("1")}, {},
                                           {{}, QStringLiteral("big")})));
    QVERIFY_THROWS_EXCEPTION(
        ConversionError,
        Write(Details({}, {QStringLiteral("a.gif"), QStringLiteral("0,5")}, {}, {})));
}

void TestProductDetailsPage::testTitleAndFactsStandWhenAScaleFails()
{
    QVERIFY_THROWS_EXCEPTION(ConversionError,
                             Write(Details({}, {{}, QStringLiteral("big")}, {}, {})));
    QCOMPARE(document.ChangedIds(),
             QStringList({QStringLiteral("productTitle"), QStringLiteral("productDetails")}));
    QCOMPARE(document.Html(QStringLiteral("productTitle")), QStringLiteral("Metzenbaum scissors"));
}

void TestProductDetailsPage::testMissingProductIsAnErrorAndWritesNothing()
{
    QVERIFY_THROWS_EXCEPTION(SubscriptError, Write({}));
    QVERIFY(document.calls.isEmpty());
}

void TestProductDetailsPage::testClearsTheListAndShowsThePicturesAgain()
{
    HtmlBuilder(std::make_unique<FakePageContext>())
        .WriteSetList(document, QStringLiteral("Set"), ManyProducts(1), nullptr);
    QCOMPARE(document.Visibility(QStringLiteral("imagesTable")), QStringLiteral("hidden"));
    Write(Details({}, {}, {}, {}));
    QCOMPARE(document.Html(QStringLiteral("list")), QString());
    QCOMPARE(document.Visibility(QStringLiteral("imagesTable")), QStringLiteral("visible"));
}

void TestProductDetailsPage::testElementsInTheirOrder()
{
    Write(Details({}, {}, {}, {}));
    QCOMPARE(document.ChangedIds(),
             QStringList({QStringLiteral("productTitle"), QStringLiteral("productDetails"),
                          QStringLiteral("printHeader"), QStringLiteral("printFooter"),
                          QStringLiteral("list"), QStringLiteral("productImages"),
                          QStringLiteral("imagesTable")}));
}

void TestProductDetailsPage::testImageCellScale_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0.0 << QString();
    QTest::newRow("negative") << -2.0 << QString();
    QTest::newRow("quarter") << 0.25 << QStringLiteral("1:4");
    QTest::newRow("half") << 0.5 << QStringLiteral("1:2");
    QTest::newRow("two fifths, a tie") << 0.4 << QStringLiteral("1:2");
    QTest::newRow("true size") << 1.0 << QStringLiteral("1:1");
    QTest::newRow("one and a half, a tie") << 1.5 << QStringLiteral("2:1");
    QTest::newRow("two") << 2.0 << QStringLiteral("2:1");
    QTest::newRow("two and a half, a tie") << 2.5 << QStringLiteral("2:1");
    QTest::newRow("three") << 3.0 << QStringLiteral("3:1");
    QTest::newRow("three and a half, a tie") << 3.5 << QStringLiteral("4:1");
    QTest::newRow("just below true size") << 0.99 << QStringLiteral("1:1");
}

void TestProductDetailsPage::testImageCellScale()
{
    QFETCH(const double, scale);
    QFETCH(const QString, text);
    const HtmlBuilder builder(std::make_unique<FakePageContext>(*context));
    QCOMPARE(builder.BuildImageCell(QStringLiteral("/sc"), QStringLiteral("a.gif"), scale),
             ImageStart + text + QStringLiteral("</td>"));
}

void TestProductDetailsPage::testImageCellWithoutPictureIsEmpty()
{
    const HtmlBuilder builder(std::make_unique<FakePageContext>(*context));
    QCOMPARE(builder.BuildImageCell(QStringLiteral("/sc"), {}, 1), QString());
}

void TestProductDetailsPage::testFindsTheFirstRowOfAnId()
{
    const ResultTable table = ProductTable(
        {{.id = QStringLiteral("5")}, {.id = QStringLiteral("9")}, {.id = QStringLiteral("9")}});
    QCOMPARE(FindRowById(table, QStringLiteral("9")), qint16(2));
    QCOMPARE(FindRowById(table, QStringLiteral("5")), qint16(1));
}

void TestProductDetailsPage::testUnknownIdIsRowZero()
{
    const ResultTable table = ProductTable({{.id = QStringLiteral("5")}});
    QCOMPARE(FindRowById(table, QStringLiteral("05")), qint16(0));
    QCOMPARE(FindRowById(table, QStringLiteral("p.ID")), qint16(0));
    QCOMPARE(FindRowById({}, QStringLiteral("5")), qint16(0));
}

QTEST_APPLESS_MAIN(TestProductDetailsPage)
#include "TestProductDetailsPage.moc"
