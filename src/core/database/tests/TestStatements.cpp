#include "core/queries/Statements.h"

#include <QTest>

using namespace Tesk;

/// The statements, character for character.
class TestStatements : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testStatement_data();
    void testStatement();
};

void TestStatements::testStatement_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("expected");
    const auto text = [](const char *latin1) { return QString::fromLatin1(latin1); };
    const QString ge = text("ge");
    const QString fr = text("fr");

    QTest::newRow("categories") << Statements::Categories(fr)
                                << text("SELECT ID, TREE_ID, parent, title_fr FROM categories "
                                        "ORDER BY firstLevelId, catLevel2,"
                                        " catLevel3, catLevel4, catLevel5, title_fr");
    QTest::newRow("products of a category")
        << Statements::ProductsOfCategory(ge, text("12"))
        << text("SELECT p.*, l.name, l.form FROM products2categories c INNER JOIN products_global "
                "p ON"
                " (c.prodID=p.ID AND c.catID=12) INNER JOIN products_localized l ON (p.ID=l.ID AND"
                " l.lang='ge') order by p.artNr");
    QTest::newRow("members of a set")
        << Statements::SetMembers(ge, text("50"))
        << text("SELECT p.*, l.name, l.form, s.iAmount FROM products2sets s INNER JOIN "
                "products_global p"
                " ON (s.iProdGlobId=p.ID AND s.iSetID=50) INNER JOIN products_localized l ON"
                " (p.ID=l.ID AND l.lang='ge') order by s.iOrder");
    QTest::newRow("product") << Statements::Product(fr, text("17"))
                             << text("SELECT p.*, l.name, l.form FROM products_global p INNER JOIN "
                                     "products_localized l ON"
                                     " (p.ID=l.ID AND l.lang='fr') WHERE p.ID=17");
    QTest::newRow("ids by article number")
        << Statements::ProductIdsByArtNr(text("AB 1%"))
        << text("SELECT p.ID FROM products_global p WHERE p.artNr LIKE 'AB 1%'");
    QTest::newRow("ids by reference number")
        << Statements::ProductIdsByRefNo(text("BH%"))
        << text("SELECT p.ID FROM reference_numbers p WHERE p.sRefNo LIKE 'BH%'");
    QTest::newRow("article numbers by reference number")
        << Statements::ArtNrsByRefNo(text("bh%"))
        << text(
               "SELECT p.artNr FROM products_global p inner join reference_numbers rn on p.ID=rn.ID"
               " WHERE rn.sRefNo LIKE 'bh%'");
    QTest::newRow("single products")
        << Statements::SingleProductCount(text("2"))
        << text("SELECT count(*) as res FROM products2categories c INNER JOIN products_global p ON"
                " (c.prodID=p.ID AND c.catID=2) where p.isSet like 'False'");
    QTest::newRow("search")
        << Statements::ProductSearch(ge, text(" WHERE p.length=145"))
        << text("SELECT p.*, l.name FROM products_global p INNER JOIN products_localized l ON"
                " (p.ID=l.ID AND l.lang='ge')  WHERE p.length=145 order by p.artNr");
    QTest::newRow("competition")
        << Statements::Competition(ge, text("123"), QString())
        << text("SELECT p.*, l.name FROM products_global p INNER JOIN products_localized l ON"
                " (p.ID=l.ID AND l.lang='ge') inner join reference_numbers rn on p.ID=rn.ID"
                " WHERE rn.sRefNo like '%123%' order by p.artNr");
    QTest::newRow("competition of a company")
        << Statements::Competition(ge, text("1"), text("Dorvik"))
        << text("SELECT p.*, l.name FROM products_global p INNER JOIN products_localized l ON"
                " (p.ID=l.ID AND l.lang='ge') inner join reference_numbers rn on p.ID=rn.ID"
                " WHERE rn.sRefNo like '%1%' AND rn.sUnternehmen = 'Dorvik' order by p.artNr");
    QTest::newRow("products by article number")
        << Statements::ProductsByArtNr(ge, text("TK 1"))
        << text("SELECT p.*, l.name FROM products_global p INNER JOIN products_localized l ON"
                " (p.ID=l.ID AND l.lang='ge')  WHERE p.ArtNr LIKE '%TK 1%' order by p.artNr");
    QTest::newRow("text goes in as it is")
        << Statements::ProductIdsByArtNr(text("it's; --%"))
        << text("SELECT p.ID FROM products_global p WHERE p.artNr LIKE 'it's; --%'");
}

void TestStatements::testStatement()
{
    QFETCH(QString, statement);
    QTEST(statement, "expected");
}

QTEST_APPLESS_MAIN(TestStatements)
#include "TestStatements.moc"
