#include "Expected.h"
#include "FakePageContext.h"
#include "Tables.h"
#include "base/Errors.h"
#include "pages/HtmlBuilder.h"
#include "support/RecordingDocument.h"

#include <QTest>

using namespace Tesk;

namespace {

const Product Clamp{.id = QStringLiteral("210"),
                    .artNr = QStringLiteral("AB 21/140"),
                    .availability = QStringLiteral("0"),
                    .name = QStringLiteral("Pean clamp"),
                    .amount = QStringLiteral("4")};
const Product HolderWithoutId{.id = QStringLiteral("0"),
                              .artNr = QStringLiteral("AB 30/160"),
                              .groupId = QStringLiteral("8"),
                              .name = QStringLiteral("Needle holder"),
                              .amount = QStringLiteral("2")};

} // namespace

class TestSetListPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { document = {}; }

    void testMembersShowAmountAndStockByFirstColumn();
    void testPriceListAddsNoColumn();
    void testLongSetHasAllRowsAndNoPager();
    void testEmptySetSaysSo();
    void testFillsTheElementsInOneGo();
    void testFirstColumnThatIsNoNumberIsAnError();

private:
    QString List(const ResultTable &table, bool hasPriceList = false);

    RecordingDocument document;
};

QString TestSetListPage::List(const ResultTable &table, bool hasPriceList)
{
    auto context = std::make_unique<FakePageContext>();
    context->hasPriceList = hasPriceList;
    HtmlBuilder(std::move(context))
        .WriteSetList(document, QStringLiteral("Basic set"), table, nullptr);
    return document.Html(QStringLiteral("list"));
}

void TestSetListPage::testMembersShowAmountAndStockByFirstColumn()
{
    QCOMPARE(List(ProductTable({Clamp, HolderWithoutId})),
             ExpectedHtml(QStringLiteral("set_list.html")));
}

void TestSetListPage::testPriceListAddsNoColumn()
{
    QCOMPARE(List(ProductTable({Clamp, HolderWithoutId}), true),
             ExpectedHtml(QStringLiteral("set_list.html")));
}

void TestSetListPage::testLongSetHasAllRowsAndNoPager()
{
    const QString list = List(ManyProducts(45));
    QCOMPARE(list.count(QStringLiteral("<tr id=\"contListRow")), 45);
    QVERIFY(list.contains(QStringLiteral("<tr id=\"contListRow45\"")));
    QVERIFY(!list.contains(QStringLiteral("firstItem=")));
}

void TestSetListPage::testEmptySetSaysSo()
{
    QCOMPARE(List({}),
             QStringLiteral("<div class=\"prodCaption\">&nbsp;T(productListNoProducts)</div>"));
    QCOMPARE(document.Html(QStringLiteral("productTitle")), QStringLiteral("Basic set"));
    QCOMPARE(document.Visibility(QStringLiteral("imagesTable")), QStringLiteral("hidden"));
}

void TestSetListPage::testFillsTheElementsInOneGo()
{
    List(ProductTable({Clamp}));
    QCOMPARE(document.calls.size(), 1);
    QCOMPARE(document.ChangedIds(),
             QStringList({QStringLiteral("printHeader"), QStringLiteral("printFooter"),
                          QStringLiteral("productTitle"), QStringLiteral("list"),
                          QStringLiteral("imagesTable")}));
    QCOMPARE(document.Html(QStringLiteral("printHeader")),
             QStringLiteral("<img src=\"img/tlogo.gif\" border=\"0\">"));
    QCOMPARE(document.Html(QStringLiteral("productTitle")), QStringLiteral("Basic set"));
    QCOMPARE(document.Visibility(QStringLiteral("imagesTable")), QStringLiteral("hidden"));
}

void TestSetListPage::testFirstColumnThatIsNoNumberIsAnError()
{
    Product product = Clamp;
    product.id = QStringLiteral("x");
    QVERIFY_THROWS_EXCEPTION(ConversionError, List(ProductTable({product})));
    QVERIFY(document.calls.isEmpty());
}

QTEST_APPLESS_MAIN(TestSetListPage)
#include "TestSetListPage.moc"
