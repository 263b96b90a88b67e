#include "base/Errors.h"
#include "core/CatalogueQueries.h"
#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;
using namespace Tesk::Database;

namespace {

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

/// The queries on a small catalogue: products 3 (AB 12-1, 145 mm), 1 (AB 12-2, 160 mm), 2 (AB 3, a
/// set of the two) and 40000.
class TestCatalogueQueries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { code = Text("ge"); }

    void testCategoriesInTheCurrentLanguage();
    void testProductsOfACategoryByArticleNumber();
    void testMembersOfASetInTheirOrder();
    void testProduct();
    void testUnknownProductGivesTheEmptyTable();
    void testFirstIdByArticleNumber();
    void testFirstIdByReferenceNumber();
    void testNoIdIsMinusOne();
    void testIdBeyond16BitsIsAnError();
    void testFirstArticleNumberByReferenceNumber();
    void testNoArticleNumberIsEmpty();
    void testHasSingleProducts();
    void testSearchForNothingAsksNothing();
    void testSearchByWords();
    void testSearchByLengthTriesAgainWithTolerance();
    void testSearchWithToleranceDoesNotTryAgain();
    void testSearchWithoutLengthDoesNotTryAgain();
    void testUnreadableLengthAloneFindsNothing();
    void testUnreadableLengthBesideADescriptionIsIgnored();
    void testSearchCompetition();
    void testSearchCompetitionOfACompany();
    void testSearchByArticleNumber();
    void testSearchByDescription();
    void testApostropheFindsNothing();
    void testWithoutADatabaseEverythingIsEmpty();

private:
    QStringList Ids(const ResultTable &table) const { return ColumnOf(table); }

    QTemporaryDir folder;
    SQLiteWrapper database{QString()};
    QString code;
    CatalogueQueries queries{database, [this] { return code; },
                             QLocale(QLocale::German, QLocale::Germany)};
};

void TestCatalogueQueries::initTestCase()
{
    const QString file = folder.filePath(Text("catalog.db"));
    WriteVersion2(
        file,
        {{"CREATE TABLE categories (ID INTEGER PRIMARY KEY, TREE_ID INTEGER, parent VARCHAR(10),"
          " title_ge VARCHAR(255), title_en VARCHAR(255), firstLevelId INTEGER, catLevel2 INTEGER,"
          " catLevel3 INTEGER, catLevel4 INTEGER, catLevel5 INTEGER)",
          "categories",
          {{"1", "10", "", "Scheren", "Scissors", "2", "0", "0", "0", "0"},
           {"2", "20", "", "Pinzetten", "Forceps", "1", "0", "0", "0", "0"},
           {"3", "30", "20", "Anatomisch", "Zeta", "1", "1", "0", "0", "0"},
           {"4", "40", "20", "Chirurgisch", "Alpha", "1", "1", "0", "0", "0"}}},
         {"CREATE TABLE products_global (ID INTEGER PRIMARY KEY, artNr VARCHAR(50), isSet "
          "VARCHAR(5),"
          " length DOUBLE)",
          "products_global",
          {{"3", "AB 12-1", "False", "145"},
           {"1", "AB 12-2", "False", "160"},
           {"2", "AB 3", "True", QByteArray()},
           {"40000", "ZZ 9", "False", "500"}}},
         {"CREATE TABLE products_localized (ID INTEGER, lang VARCHAR(2), name VARCHAR(255),"
          " form VARCHAR(255))",
          "products_localized",
          {{"1", "ge", "Schere gebogen", "gebogen"},
           {"1", "en", "Scissors curved", "curved"},
           {"2", "ge", "Set Schere", QByteArray()},
           {"3", "ge", "Schere gerade", "gerade"},
           {"3", "en", "Scissors straight", "straight"}}},
         {"CREATE TABLE products2categories (prodID INTEGER, catID INTEGER)",
          "products2categories",
          {{"1", "1"}, {"2", "1"}, {"3", "1"}, {"2", "2"}}},
         {"CREATE TABLE products2sets (iSetID INTEGER, iProdGlobId INTEGER, iAmount INTEGER,"
          " iOrder INTEGER)",
          "products2sets",
          {{"2", "1", "4", "10"}, {"2", "3", "2", "9"}}},
         {"CREATE TABLE reference_numbers (ID INTEGER, sRefNo VARCHAR(50), sUnternehmen "
          "VARCHAR(100))",
          "reference_numbers",
          {{"3", "BH123", "Varnholt"}, {"1", "BH124", "Dorvik"}, {"40000", "XX1", "Dorvik"}}}});
    QVERIFY(database.Open(file));
}

void TestCatalogueQueries::testCategoriesInTheCurrentLanguage()
{
    QCOMPARE(RowsOf(queries.QueryCategories()),
             (QStringList{Text("2|20||Pinzetten"), Text("3|30|20|Anatomisch"),
                          Text("4|40|20|Chirurgisch"), Text("1|10||Scheren")}));
    code = Text("en"); // taken when the statement is built
    QCOMPARE(RowsOf(queries.QueryCategories()),
             (QStringList{Text("2|20||Forceps"), Text("4|40|20|Alpha"), Text("3|30|20|Zeta"),
                          Text("1|10||Scissors")}));
}

void TestCatalogueQueries::testProductsOfACategoryByArticleNumber()
{
    const ResultTable table = queries.QueryProductsOfCategory(Text("1"));
    QCOMPARE(NamesOf(table), (QStringList{Text("p.ID"), Text("p.artNr"), Text("p.isSet"),
                                          Text("p.length"), Text("l.name"), Text("l.form")}));
    QCOMPARE(RowsOf(table), (QStringList{Text("3|AB 12-1|False|145|Schere gerade|gerade"),
                                         Text("1|AB 12-2|False|160|Schere gebogen|gebogen"),
                                         Text("2|AB 3|True|NULL|Set Schere|NULL")}));
}

void TestCatalogueQueries::testMembersOfASetInTheirOrder()
{
    const ResultTable table = queries.QuerySetMembers(Text("2"));
    QCOMPARE(Ids(table), (QStringList{Text("3"), Text("1")}));
    QCOMPARE(GetField(Text("s.iAmount"), table, 1), Text("2"));
    QCOMPARE(GetField(Text("s.iAmount"), table, 2), Text("4"));
}

void TestCatalogueQueries::testProduct()
{
    code = Text("en");
    QCOMPARE(RowsOf(queries.QueryProduct(Text("1"))),
             QStringList(Text("1|AB 12-2|False|160|Scissors curved|curved")));
}

void TestCatalogueQueries::testUnknownProductGivesTheEmptyTable()
{
    QCOMPARE(queries.QueryProduct(Text("99")).UpperRow(), -1);
}

void TestCatalogueQueries::testFirstIdByArticleNumber()
{
    QCOMPARE(queries.FindProductIdsByArtNr(Text("ab 12%")), Text("1"));
    QCOMPARE(queries.FindProductIdsByArtNr(Text("AB 12-1")), Text("3"));
}

void TestCatalogueQueries::testFirstIdByReferenceNumber()
{
    QCOMPARE(queries.FindProductIdsByRefNo(Text("bh12%")), Text("3"));
}

void TestCatalogueQueries::testNoIdIsMinusOne()
{
    QCOMPARE(queries.FindProductIdsByArtNr(Text("nothing")), Text("-1"));
    QCOMPARE(queries.FindProductIdsByRefNo(Text("nothing")), Text("-1"));
}

void TestCatalogueQueries::testIdBeyond16BitsIsAnError()
{
    QVERIFY_THROWS_EXCEPTION(ConversionError, queries.FindProductIdsByArtNr(Text("ZZ%")));
    QVERIFY_THROWS_EXCEPTION(ConversionError, queries.FindProductIdsByRefNo(Text("XX%")));
}

void TestCatalogueQueries::testFirstArticleNumberByReferenceNumber()
{
    QCOMPARE(queries.FindArtNrsByRefNo(Text("BH124")), Text("AB 12-2"));
}

void TestCatalogueQueries::testNoArticleNumberIsEmpty()
{
    QCOMPARE(queries.FindArtNrsByRefNo(Text("nothing")), QLatin1String(""));
}

void TestCatalogueQueries::testHasSingleProducts()
{
    QVERIFY(queries.HasSingleProducts(Text("1")));
    QVERIFY(!queries.HasSingleProducts(Text("2")));   // a set only
    QVERIFY(!queries.HasSingleProducts(Text("77")));  // no products
    QVERIFY(!queries.HasSingleProducts(Text("x y"))); // no statement
    QVERIFY(!queries.HasSingleProducts(QString()));   // no category
}

void TestCatalogueQueries::testSearchForNothingAsksNothing()
{
    // A statement with nothing behind WHERE fails, and every failure leaves a line.
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    QCOMPARE(queries.SearchProducts(QString(), QString(), QString(), Text("mm"), false).UpperRow(),
             -1);
    QCOMPARE(queries.SearchProducts(QString(), QString(), Text("0"), Text("mm"), true).UpperRow(),
             -1);
}

void TestCatalogueQueries::testSearchByWords()
{
    QCOMPARE(Ids(queries.SearchProducts(Text("schere AND gerade"), QString(), QString(), Text("mm"),
                                        false)),
             QStringList(Text("3")));
    QCOMPARE(
        Ids(queries.SearchProducts(Text("schere"), Text("AB12"), QString(), Text("mm"), false)),
        (QStringList{Text("3"), Text("1")}));
}

void TestCatalogueQueries::testSearchByLengthTriesAgainWithTolerance()
{
    QCOMPARE(Ids(queries.SearchProducts(QString(), QString(), Text("14,5"), Text("cm"), false)),
             QStringList(Text("3")));
    // No product is 150 mm long: 135 to 165 finds both.
    QCOMPARE(Ids(queries.SearchProducts(QString(), QString(), Text("15"), Text("cm"), false)),
             (QStringList{Text("3"), Text("1")}));
}

void TestCatalogueQueries::testSearchWithToleranceDoesNotTryAgain()
{
    QCOMPARE(Ids(queries.SearchProducts(QString(), QString(), Text("145"), Text("mm"), true)),
             (QStringList{Text("3"), Text("1")}));
    QCOMPARE(queries.SearchProducts(QString(), QString(), Text("300"), Text("mm"), true).UpperRow(),
             -1);
}

void TestCatalogueQueries::testSearchWithoutLengthDoesNotTryAgain()
{
    QCOMPARE(
        queries.SearchProducts(Text("nothing"), QString(), Text("0"), Text("mm"), false).UpperRow(),
        -1);
}

void TestCatalogueQueries::testUnreadableLengthAloneFindsNothing()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    QCOMPARE(
        queries.SearchProducts(QString(), QString(), Text("abc"), Text("mm"), false).UpperRow(),
        -1);
}

void TestCatalogueQueries::testUnreadableLengthBesideADescriptionIsIgnored()
{
    QCOMPARE(
        Ids(queries.SearchProducts(Text("gebogen"), QString(), Text("abc"), Text("mm"), false)),
        QStringList(Text("1")));
}

void TestCatalogueQueries::testSearchCompetition()
{
    QCOMPARE(Ids(queries.SearchCompetition(Text("12"), QString())),
             (QStringList{Text("3"), Text("1")}));
}

void TestCatalogueQueries::testSearchCompetitionOfACompany()
{
    QCOMPARE(Ids(queries.SearchCompetition(Text("12"), Text("Dorvik"))), QStringList(Text("1")));
    QCOMPARE(queries.SearchCompetition(Text("12"), Text("dorvik")).UpperRow(), -1);
}

void TestCatalogueQueries::testSearchByArticleNumber()
{
    QCOMPARE(Ids(queries.SearchByArtNr(Text(" ab12 "))), (QStringList{Text("3"), Text("1")}));
    QCOMPARE(Ids(queries.SearchByArtNr(Text("2-2"))), QStringList(Text("1")));
    QCOMPARE(Ids(queries.SearchByArtNr(QString())), (QStringList{Text("3"), Text("1"), Text("2")}));
}

void TestCatalogueQueries::testSearchByDescription()
{
    QCOMPARE(Ids(queries.SearchByDescription(Text("schere"))),
             (QStringList{Text("3"), Text("1"), Text("2")}));
    QCOMPARE(queries.SearchByDescription(Text(" ")).UpperRow(), -1);
}

void TestCatalogueQueries::testApostropheFindsNothing()
{
    QCOMPARE(queries.SearchByDescription(Text("it's")).UpperRow(), -1);
    QCOMPARE(queries.FindProductIdsByArtNr(Text("'")), Text("-1"));
    QCOMPARE(queries.FindArtNrsByRefNo(Text("'")), QLatin1String(""));
    QVERIFY(!queries.HasSingleProducts(Text("'")));
}

void TestCatalogueQueries::testWithoutADatabaseEverythingIsEmpty()
{
    const SQLiteWrapper closed{QString()};
    const CatalogueQueries without(
        closed, [] { return Text("ge"); }, QLocale::c());
    QCOMPARE(without.QueryCategories().UpperRow(), -1);
    QCOMPARE(without.FindProductIdsByArtNr(Text("%")), Text("-1"));
    QVERIFY(!without.HasSingleProducts(Text("1")));
}

QTEST_APPLESS_MAIN(TestCatalogueQueries)
#include "TestCatalogueQueries.moc"
