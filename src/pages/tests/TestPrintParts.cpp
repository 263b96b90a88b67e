#include "FakePageContext.h"
#include "Tables.h"
#include "pages/HtmlBuilder.h"

#include <QTest>

using namespace Tesk;

namespace {

const QString Logo = QStringLiteral("<img src=\"img/tlogo.gif\" border=\"0\">");

} // namespace

class TestPrintParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testHeaderShowsTheNodesPath();
    void testHeaderOfTheCartWithoutNodeNamesTheCart();
    void testHeaderWithoutNodeIsTheLogo();
    void testFooterBearsTheYearAndTheAddress();

private:
    const CategoryTree tree = MakeTree({
        {QStringLiteral("20"), QStringLiteral("1"), {}, QStringLiteral("Scissors")},
        {QStringLiteral("21"), QStringLiteral("2"), QStringLiteral("1"),
         QStringLiteral("Dissecting scissors")},
    });
    const HtmlBuilder builder{std::make_unique<FakePageContext>(),
                              [] { return QDate(2027, 1, 1); }};
};

void TestPrintParts::testHeaderShowsTheNodesPath()
{
    const QString expected =
        Logo + QStringLiteral("<div style=\"margin-top:8px;\">Scissors\\Dissecting scissors</div>");
    const CategoryNode *node = tree.FindByTag(QStringLiteral("21"));
    QCOMPARE(builder.BuildPrintHeader(node, {}), expected);
    QCOMPARE(builder.BuildPrintHeader(node, QStringLiteral("wc")), expected);
}

void TestPrintParts::testHeaderOfTheCartWithoutNodeNamesTheCart()
{
    QCOMPARE(builder.BuildPrintHeader(nullptr, QStringLiteral("wc")),
             Logo +
                 QStringLiteral("<div style=\"margin-top:30px; margin-bottom:20px; "
                                "padding-bottom:10px; border-bottom: solid #9C9A9C 1px;\">"
                                "<span class=\"contArea\">T(tabControlShoppingCart)</span></div>"));
}

void TestPrintParts::testHeaderWithoutNodeIsTheLogo()
{
    QCOMPARE(builder.BuildPrintHeader(nullptr, {}), Logo);
    QCOMPARE(builder.BuildPrintHeader(nullptr, QStringLiteral("WC")), Logo);
}

void TestPrintParts::testFooterBearsTheYearAndTheAddress()
{
    QCOMPARE(builder.BuildPrintFooter(), QStringLiteral("&nbsp;&copy; 2027 T(commonAddress)"));
}

QTEST_APPLESS_MAIN(TestPrintParts)
#include "TestPrintParts.moc"
