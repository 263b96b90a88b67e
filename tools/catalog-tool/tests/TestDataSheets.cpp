#include "TinySources.h"

#include "base/Errors.h"
#include "build/DataSheetPrinter.h"
#include "sources/CatalogueSources.h"
#include "sources/DataSheetPlan.h"
#include "sources/Problems.h"

#include <QTest>

using namespace Tesk;

namespace {

QByteArray Print(const TinySources &tiny)
{
    return PrintDataSheet(tiny.Path(QStringLiteral("datasheets/AB_10-1.html")));
}

qsizetype PageCount(const QByteArray &pdf)
{
    return pdf.count("/Type /Page\n");
}

} // namespace

class TestDataSheets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testPrintsOnePageOfA4()
    {
        const QByteArray pdf = Print(TinySources());
        QVERIFY(pdf.startsWith("%PDF-"));
        QVERIFY(pdf.trimmed().endsWith("%%EOF"));
        QCOMPARE(PageCount(pdf), 1);
        QVERIFY2(pdf.contains("/MediaBox [0 0 595.000000 842.000000]"), pdf.left(2000));
    }

    void testDrawingsStayVectors()
    {
        const TinySources tiny;
        QVERIFY(!Print(tiny).contains("/Subtype /Image"));
        // The same page with a picture made of pixels has one.
        QImage pixels(20, 20, QImage::Format_RGB32);
        pixels.fill(Qt::red);
        QVERIFY(pixels.save(tiny.Path(QStringLiteral("datasheets/pixels.png"))));
        tiny.Replace(QStringLiteral("datasheets/AB_10-1.html"), "../drawings/scissors/Straight.svg",
                     "pixels.png");
        QVERIFY(Print(tiny).contains("/Subtype /Image"));
    }

    void testLongSheetsHaveSeveralPages()
    {
        const TinySources tiny;
        QByteArray lines;
        for (int i = 0; i < 200; ++i)
            lines += "<p>line</p>\n";
        tiny.Replace(QStringLiteral("datasheets/AB_10-1.html"), "</body>", lines + "</body>");
        const qsizetype pages = PageCount(Print(tiny));
        QVERIFY2(pages > 2 && pages < 12, qPrintable(QString::number(pages)));
    }

    void testHoldsNoTimeOfPrinting() { QVERIFY(!Print(TinySources()).contains("CreationDate")); }

    void testEqualSheetsGiveEqualFiles()
    {
        const TinySources tiny;
        QCOMPARE(Print(tiny), Print(tiny));
    }

    void testReportsAMissingPage()
    {
        QVERIFY_THROWS_EXCEPTION(FileError, PrintDataSheet(QStringLiteral("none.html")));
    }

    void testNamesStandForArticleNumbers()
    {
        QCOMPARE((DataSheet{QStringLiteral("ab-12_x.pdf"), {}, true}.ArticleNumber()),
                 QStringLiteral("AB/12 X"));
        // Letter by letter, as the program finds them.
        QCOMPARE((DataSheet{QString::fromUtf8("maß_1.pdf"), {}, true}.ArticleNumber()),
                 QString::fromUtf8("MAß 1"));
    }

    void testOnlyPagesAndReadySheetsOfTheFolderItselfAreSheets()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("datasheets/style.css"), "x");
        tiny.Write(QStringLiteral("datasheets/figures/AB_1.html"), "x");
        Problems problems;
        const QList<DataSheet> sheets = PlanDataSheets(CatalogueSources(tiny.Path(), problems));
        QCOMPARE(sheets.size(), 2);
        QCOMPARE(sheets[0].fileName, QStringLiteral("AB_10-1.pdf"));
        QVERIFY(sheets[0].isPrinted);
        QCOMPARE(sheets[1].fileName, QStringLiteral("AB_10-2.pdf"));
        QVERIFY(!sheets[1].isPrinted);
    }
};

QTEST_MAIN(TestDataSheets)
#include "TestDataSheets.moc"
