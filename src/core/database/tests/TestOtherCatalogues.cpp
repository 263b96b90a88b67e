#include "core/CatalogueQueries.h"
#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;
using namespace Tesk::Database;

namespace {

QString Text(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

/// A catalogue that another maker laid out: names in other cases and quotes, columns in another
/// order and of other types, tables that no query asks for.
class TestOtherCatalogues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void testCategories();
    void testProductsOfACategory();
    void testProduct();
    void testFindsByLengthWhateverItsSpelling();
    void testSearchTextHoldsKeywords();
    void testSearchTextCutsTheStatementShort_data();
    void testSearchTextCutsTheStatementShort();
    void testReferenceNumbers();

private:
    QTemporaryDir folder;
    SQLiteWrapper database{QString()};
    CatalogueQueries queries{database, [] { return Text("ge"); }, QLocale::c()};
};

void TestOtherCatalogues::initTestCase()
{
    const QString file = folder.filePath(Text("catalog.db"));
    WriteVersion2(
        file,
        {{"CREATE TABLE notes (rowid, oid VARCHAR, key INTEGER DEFAULT -1, 'a''b', [c d] TEXT"
          " NOT NULL ON CONFLICT REPLACE, CHECK (key > 0), UNIQUE (key, oid) ON CONFLICT IGNORE)",
          "notes",
          {{"x", "y", "1", "z", ""}}},
         {"create table CATEGORIES(TITLE_GE, title_en, CATLEVEL5, catLevel4 INT, catLevel3,"
          " catLevel2, firstLevelId VARCHAR(4), Parent NUMERIC, tree_id, id /* key */ PRIMARY KEY)",
          "CATEGORIES",
          {{"Zwei", "Two", QByteArray(), "", "", "10", "1", "", "7", "70"},
           {"Eins", "One", QByteArray(), "", "", "9", "1", "7", "8", "80"},
           {"Drei", "Three", QByteArray(), "", "", "0", "10", "", "9", "90"}}},
         {"CREATE TABLE Products_Global (extra, length VARCHAR(10), isSet, \"artNr\" CHAR(20),"
          " ID VARCHAR(5))",
          "Products_Global",
          {{"%' OR '1'='1", "0145.0", "False", "B 2", "007"},
           {QByteArray(), "1.45e2", "False", "B 10", "12"},
           {"order by", "1450", "True", "A 1", "13"}}},
         {"CREATE TABLE products_localized (form, NAME, LANG VARCHAR(2), ID)",
          "products_localized",
          {{"f1", "Schere AND 'mehr'", "ge", "7"},
           {"f2", "Schere where order", "ge", "12.0"},
           {"f3", "Schere; --", "ge", "13"}}},
         {"CREATE TABLE products2categories (catID, sort, prodID)",
          "products2categories",
          {{"70", "1", "7"}, {"070", "2", "12"}, {"71", "3", "13"}}},
         {"CREATE TABLE reference_numbers (sUnternehmen, sRefNo, ID TEXT, remark)",
          "reference_numbers",
          {{"Dorvik", "X_1", "12", ""}, {"DORVIK", "xA1", "13", ""}}}});
    QVERIFY(database.Open(file));
}

void TestOtherCatalogues::testCategories()
{
    // firstLevelId is text here ("1" before "10"), catLevel2 is not (9 before 10).
    const ResultTable table = queries.QueryCategories();
    QCOMPARE(NamesOf(table),
             (QStringList{Text("ID"), Text("TREE_ID"), Text("parent"), Text("title_ge")}));
    QCOMPARE(RowsOf(table),
             (QStringList{Text("80|8|7|Eins"), Text("70|7||Zwei"), Text("90|9||Drei")}));
}

void TestOtherCatalogues::testProductsOfACategory()
{
    const ResultTable table = queries.QueryProductsOfCategory(Text("70"));
    QCOMPARE(NamesOf(table),
             (QStringList{Text("p.extra"), Text("p.length"), Text("p.isSet"), Text("p.artNr"),
                          Text("p.ID"), Text("l.name"), Text("l.form")}));
    QCOMPARE(RowsOf(table), (QStringList{Text("NULL|1.45e2|False|B 10|12|Schere where order|f2"),
                                         Text("%' OR '1'='1|0145.0|False|B 2|007|"
                                              "Schere AND 'mehr'|f1")}));
    QVERIFY(queries.HasSingleProducts(Text("70")));
    QVERIFY(!queries.HasSingleProducts(Text("71")));
}

void TestOtherCatalogues::testProduct()
{
    QCOMPARE(GetField(Text("p.ID"), queries.QueryProduct(Text("7")), 1), Text("007"));
    QCOMPARE(queries.QueryProduct(Text("70")).UpperRow(), -1);
}

void TestOtherCatalogues::testFindsByLengthWhateverItsSpelling()
{
    const ResultTable table =
        queries.SearchProducts(QString(), QString(), Text("145"), Text("mm"), false);
    QCOMPARE(ColumnOf(table, 4), (QStringList{Text("12"), Text("007")}));
}

void TestOtherCatalogues::testSearchTextHoldsKeywords()
{
    const auto idsOf = [this](const char *text) {
        return ColumnOf(queries.SearchByDescription(Text(text)), 4);
    };
    QCOMPARE(idsOf("order where"), QStringList(Text("12")));
    QCOMPARE(idsOf("; --"), QStringList(Text("13")));
    QCOMPARE(idsOf("''mehr''"), QStringList(Text("007"))); // doubled, as SQL spells it
    QCOMPARE(idsOf("\"mehr\""), QStringList());
    // Tabs, because blanks part the words of a description.
    QCOMPARE(idsOf("x%')\tor\t(l.name\tlike\t'%schere"),
             (QStringList{Text("13"), Text("12"), Text("007")}));
}

void TestOtherCatalogues::testSearchTextCutsTheStatementShort_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("comment to the end of the line") << Text("A'--");
    QTest::newRow("open comment") << Text("A'/*");
    QTest::newRow("next statement") << Text("A'; nonsense");
}

void TestOtherCatalogues::testSearchTextCutsTheStatementShort()
{
    QFETCH(QString, text);
    QCOMPARE(queries.SearchByArtNr(text).UpperRow(), -1); // none ends in A
    const ResultTable table = queries.SearchByArtNr(QString(text).replace(Text("A"), Text("%")));
    QCOMPARE(NamesOf(table).value(3), Text("p.artNr"));
    // The order by article numbers is cut off: that of the table stands.
    QCOMPARE(ColumnOf(table, 3), (QStringList{Text("B 2"), Text("B 10"), Text("A 1")}));
}

void TestOtherCatalogues::testReferenceNumbers()
{
    QCOMPARE(ColumnOf(queries.SearchCompetition(Text("x_1"), QString()), 4),
             (QStringList{Text("13"), Text("12")}));
    QCOMPARE(ColumnOf(queries.SearchCompetition(Text("x_1"), Text("Dorvik")), 4),
             QStringList(Text("12")));
    QCOMPARE(queries.FindProductIdsByRefNo(Text("xa%")), Text("13"));
    QCOMPARE(queries.FindArtNrsByRefNo(Text("X\\_1")), QString());
}

QTEST_APPLESS_MAIN(TestOtherCatalogues)
#include "TestOtherCatalogues.moc"
