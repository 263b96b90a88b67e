#include "TinySources.h"

#include "sources/CatalogueSources.h"
#include "sources/FileTree.h"
#include "sources/Problems.h"
#include "sources/References.h"
#include "sources/SvgSource.h"
#include "sources/TextFile.h"

#include <QTest>
#include <QXmlStreamReader>

using namespace Tesk;

namespace {

SvgSource Parsed(const QByteArray &bytes)
{
    Problems problems;
    return SvgSource::Parse(bytes, QStringLiteral("a.svg"), problems).value();
}

/// The root element's attributes, by another reader than the one under test.
QXmlStreamAttributes RootAttributes(const QByteArray &svg)
{
    QXmlStreamReader reader(svg);
    reader.readNextStartElement();
    return reader.attributes();
}

} // namespace

class TestSources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testTableKeepsTextsAsTheyStand()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("tables/t.tsv"), "A\tB\tC\n 007 \t\\N\t\nx\t\\n\t\"q\"\n");
        Problems problems;
        const TableSource table(QDir(tiny.Path()), QStringLiteral("tables/t.tsv"), problems);
        QVERIFY(problems.IsEmpty());
        const std::vector<TableRow> rows = table.Rows();
        QCOMPARE(rows.size(), size_t(2));
        QCOMPARE(rows[0].Line(), 2);
        QCOMPARE(rows[0].Text(QLatin1String("A")), QStringLiteral(" 007 "));
        QVERIFY(!rows[0].At(QLatin1String("B")).has_value());
        QCOMPARE(rows[0].At(QLatin1String("C")).value(), QString());
        QCOMPARE(rows[1].Text(QLatin1String("B")), QStringLiteral("\\n"));
        QCOMPARE(rows[1].Text(QLatin1String("C")), QStringLiteral("\"q\""));
    }

    void testTableWithoutFinalLineEnd()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("tables/t.tsv"), "A\n1\n2");
        Problems problems;
        const TableSource table(QDir(tiny.Path()), QStringLiteral("tables/t.tsv"), problems);
        QCOMPARE(table.Rows().size(), size_t(2));
    }

    void testEmptyTableFileIsAProblem()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("tables/t.tsv"), "");
        Problems problems;
        const TableSource table(QDir(tiny.Path()), QStringLiteral("tables/t.tsv"), problems);
        QCOMPARE(problems.Count(), 1);
    }

    void testSchemaSplitsStatementsOutsideQuotesAndComments()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("tables/schema.sql"),
                   "-- first; of all\nCREATE TABLE a (ID INTEGER, -- the id; really\n"
                   "  \"x;y\" VARCHAR(5));\n\n  create unique index i ON a (ID)\n");
        Problems problems;
        const SchemaSource schema(QDir(tiny.Path()), problems);
        QVERIFY2(problems.IsEmpty(), qPrintable(problems.ToText(QString())));
        QCOMPARE(schema.Statements().size(), 2);
        QCOMPARE(schema.Statements()[0].line, 2);
        QCOMPARE(schema.Statements()[0].sql,
                 QStringLiteral("CREATE TABLE a (ID INTEGER,\n  \"x;y\" VARCHAR(5))"));
        QVERIFY(!schema.Statements()[0].isIndex);
        QCOMPARE(schema.Statements()[1].line, 5);
        QVERIFY(schema.Statements()[1].isIndex);
        QCOMPARE(schema.FindTable(QStringLiteral("a"))->columns.at(1).name, std::string("x;y"));
    }

    void testLanguageFileMayHoldCommentsAndEmptyLines()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("languages/loc_en.txt"), "# a = b = c\n\n  \nkey= text \n");
        Problems problems;
        const LanguageSource language(QDir(tiny.Path()), QStringLiteral("en"), problems);
        QVERIFY(problems.IsEmpty());
        QCOMPARE(language.Texts().size(), 1);
        QCOMPARE(language.Find(QStringLiteral("key"))->text, QStringLiteral(" text "));
        QCOMPARE(language.Find(QStringLiteral("key"))->line, 4);
        QCOMPARE(language.Find(QStringLiteral("other")), nullptr);
    }

    void testCodePageHoldsAllLanguages()
    {
        Problems problems;
        CheckCodePage(QStringLiteral("äöüß éèœç ñ¿¡ àò €–…„“’ ?"), QStringLiteral("f"), 1,
                      problems);
        QVERIFY(problems.IsEmpty());
        CheckCodePage(QStringLiteral("\u0081"), QStringLiteral("f"), 1, problems);
        QCOMPARE(problems.Count(), 1);
    }

    void testProblemsAreSortedByPlace()
    {
        Problems problems;
        problems.Add(QStringLiteral("b"), 2, QStringLiteral("m"));
        problems.Add(QStringLiteral("a"), 10, QStringLiteral("m"));
        problems.Add(QStringLiteral("a"), 9, QStringLiteral("m"));
        problems.Add(QStringLiteral("b"), 0, QStringLiteral("m"));
        QCOMPARE(problems.ToText(QStringLiteral("src")),
                 QStringLiteral("src/a:9: m\nsrc/a:10: m\nsrc/b: m\nsrc/b:2: m\n"));
    }

    void testFileListsAreSortedAndLeaveHiddenFilesOut()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("more/b/c.txt"), "x");
        tiny.Write(QStringLiteral("more/a.txt"), "x");
        tiny.Write(QStringLiteral("more/.hidden"), "x");
        QCOMPARE(ListFiles(QDir(tiny.Path()), QStringLiteral("more")),
                 (QStringList{QStringLiteral("more/a.txt"), QStringLiteral("more/b/c.txt")}));
        QCOMPARE(ListFiles(QDir(tiny.Path()), QStringLiteral("none")), QStringList());
    }

    void testDrawingGetsTheGivenWidth()
    {
        const TinySources tiny;
        const QByteArray sized =
            Parsed(tiny.Read(QStringLiteral("drawings/scissors/Straight.svg"))).WithWidth(160);
        const QXmlStreamAttributes root = RootAttributes(sized);
        QCOMPARE(root.value(QLatin1String("width")).toString(), QStringLiteral("160"));
        QCOMPARE(root.value(QLatin1String("height")).toString(), QStringLiteral("40"));
        QCOMPARE(root.value(QLatin1String("viewBox")).toString(), QStringLiteral("0 0 320 80"));
        // Everything but the root element stays, sizes of other elements included.
        QVERIFY(sized.contains("<!-- <svg width=\"1\"> is not the root -->"));
        QVERIFY(sized.contains("<rect width=\"300\" height=\"60\""));
        QVERIFY(sized.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"));
        QVERIFY(sized.endsWith("</svg>\n"));
    }

    void testDrawingIsNeverWiderThanItsViewBox()
    {
        const SvgSource drawing =
            Parsed("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"-5,-5 30 9\"/>");
        QCOMPARE(drawing.Size(), QSizeF(30, 9));
        const QXmlStreamAttributes root = RootAttributes(drawing.WithWidth(480));
        QCOMPARE(root.value(QLatin1String("width")).toString(), QStringLiteral("30"));
        QCOMPARE(root.value(QLatin1String("height")).toString(), QStringLiteral("9"));
    }

    void testDrawingKeepsOtherAttributesThatEndInWidth()
    {
        const SvgSource drawing =
            Parsed("<svg stroke-width=\"3\" width=\"7\" xmlns=\"http://www.w3.org/2000/svg\" "
                   "viewBox=\"0 0 10 10\"><path d=\"M0 0>\"/></svg>");
        const QXmlStreamAttributes root = RootAttributes(drawing.WithWidth(5));
        QCOMPARE(root.value(QLatin1String("stroke-width")).toString(), QStringLiteral("3"));
        QCOMPARE(root.value(QLatin1String("width")).toString(), QStringLiteral("5"));
    }

    void testFindsReferencesOfPages()
    {
        const QList<Reference> references = FindReferences(
            "<link href='../style.css?v=1'>\n<img src = \"a%20b.gif\"> <a href=\"#top\">\n"
            "<a href=\"javascript:go()\"><a href=\"http://x/\"><a href=\"\\Grafiken\\a.svg#x\">\n"
            "<i style=\"background:url(c.png)\">",
            QStringLiteral("Dokumente/sub/page.html"));
        QCOMPARE(references.size(), 4);
        QCOMPARE(references[0].target, QStringLiteral("Dokumente/style.css"));
        QCOMPARE(references[0].line, 1);
        QCOMPARE(references[1].target, QStringLiteral("Dokumente/sub/a b.gif"));
        QCOMPARE(references[1].line, 2);
        QCOMPARE(references[2].target, QStringLiteral("Grafiken/a.svg"));
        QCOMPARE(references[2].line, 3);
        QCOMPARE(references[3].target, QStringLiteral("Dokumente/sub/c.png"));
    }

    void testSelectorsOfStyleSheetsAreNoReferences()
    {
        const QList<Reference> references = FindReferences(
            "img[src=\"img/a.gif\"] { background: url('img/b.gif') }", QStringLiteral("c/p.css"));
        QCOMPARE(references.size(), 1);
        QCOMPARE(references[0].target, QStringLiteral("c/img/b.gif"));
    }
};

QTEST_GUILESS_MAIN(TestSources)
#include "TestSources.moc"
