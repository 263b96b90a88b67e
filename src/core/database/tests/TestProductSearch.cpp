#include "core/CatalogueQueries.h"
#include "core/queries/ArtNr.h"
#include "core/queries/ProductSearch.h"

#include <QRegularExpression>
#include <QTest>

using namespace Tesk;

namespace {

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

class TestProductSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testNormalisedArticleNumber_data();
    void testNormalisedArticleNumber();
    void testWords_data();
    void testWords();
    void testArticleNumber();
    void testLength_data();
    void testLength();
    void testLengthThatIsNotUsed_data();
    void testLengthThatIsNotUsed();
    void testAllTogether();
    void testLengthBesideADescription();
    void testUnreadableLengthBesideADescription();
    void testNothing();
};

void TestProductSearch::testNormalisedArticleNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("normalised");
    const auto add = [](const char *text, const char *normalised) {
        QTest::addRow("'%s'", text) << Text(text) << Text(normalised);
    };
    add("AB123", "AB 123");
    add("AB12C3", "AB 12C3");
    add("123", "123");
    add("AB 123", "AB 123");
    add("A B123", "A B123");
    add("ABC", "ABC");
    add("  AB123  ", "AB 123");
    add("  ABC ", "ABC");
    add("   ", "");
    add("", "");
    add("-5", "- 5");
    add("\tAB1", "\tAB 1");
    add("AB٣", "AB٣"); // a digit of another script is none
}

void TestProductSearch::testNormalisedArticleNumber()
{
    QFETCH(QString, text);
    QTEST(NormaliseArtNr(text), "normalised");
}

void TestProductSearch::testWords_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("whereClause");
    const auto add = [](const char *description, const char *whereClause) {
        QTest::addRow("'%s'", description) << Text(description) << Text(whereClause);
    };
    add("schere", " WHERE  (l.name LIKE '%schere%') ");
    add("schere gebogen", " WHERE  (l.name LIKE '%schere%')  AND (l.name LIKE '%gebogen%') ");
    add("schere AND gebogen", " WHERE  (l.name LIKE '%schere%')  AND (l.name LIKE '%gebogen%') ");
    add("schere and gebogen", " WHERE  (l.name LIKE '%schere%')  AND (l.name LIKE '%gebogen%') ");
    add("schere And", " WHERE  (l.name LIKE '%schere%') ");
    add("and schere", " WHERE  (l.name LIKE '%and%')  AND (l.name LIKE '%schere%') ");
    add("a AND AND b",
        " WHERE  (l.name LIKE '%a%')  AND (l.name LIKE '%AND%')  AND (l.name LIKE '%b%') ");
    add("a  b", " WHERE  (l.name LIKE '%a%')  AND (l.name LIKE '%%')  AND (l.name LIKE '%b%') ");
    add("band", " WHERE  (l.name LIKE '%band%') ");
    add("it's", " WHERE  (l.name LIKE '%it's%') ");
    add("M_ller", " WHERE  (l.name LIKE '%M_ller%') ");
}

void TestProductSearch::testWords()
{
    QFETCH(QString, description);
    const SearchCondition condition =
        SearchConditionOf({description, QString(), QString(), Text("mm"), false}, QLocale::c());
    QTEST(condition.whereClause, "whereClause");
    QVERIFY(!condition.isEmpty);
    QVERIFY(!condition.usesLength);
}

void TestProductSearch::testArticleNumber()
{
    const SearchCondition condition =
        SearchConditionOf({QString(), Text("AB123"), QString(), Text("mm"), false}, QLocale::c());
    QCOMPARE(condition.whereClause, Text(" WHERE p.artNr LIKE '%AB 123%'"));
    QVERIFY(!condition.isEmpty);
    QVERIFY(!condition.usesLength);
}

void TestProductSearch::testLength_data()
{
    QTest::addColumn<QString>("length");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<bool>("tolerance");
    QTest::addColumn<QString>("whereClause");
    const auto add = [](const char *length, const char *unit, bool tolerance,
                        const char *condition) {
        QTest::addRow("%s %s %d", length, unit, static_cast<int>(tolerance))
            << Text(length) << Text(unit) << tolerance << Text(" WHERE ") + Text(condition);
    };
    add("145", "mm", false, "p.length=145");
    add(" 145 ", "mm", false, "p.length=145");
    add("14,5", "cm", false, "p.length=145");
    add("2", "inch", false, "p.length=49");
    add("0,5", "mm", false, "p.length=0"); // halves go to the even neighbour
    add("2,5", "mm", false, "p.length=2");
    add("3,5", "mm", false, "p.length=4");
    add("0,25", "cm", false, "p.length=2");
    add("0,35", "cm", false, "p.length=4");
    add("1", "inch", false, "p.length=24"); // 24.5
    add("3", "inch", false, "p.length=74"); // 73.5
    add("1000000", "mm", false, "p.length=1000000");
    add("14,5", "yard", false, "p.length=14.5"); // another unit takes the number as it stands
    add("14,5", "MM", false, "p.length=14.5");
    add("145", "mm", true, "(p.length between 130 AND 160)"); // 130.5 and 159.5
    add("14,5", "cm", true, "(p.length between 130 AND 160)");
    add("5", "mm", true, "(p.length between 4 AND 6)"); // 4.5 and 5.5
    add("100", "mm", true, "(p.length between 90 AND 110)");
    add("14,5", "yard", true, "(p.length between 13 AND 16)"); // 13.05 and 15.95
}

void TestProductSearch::testLength()
{
    QFETCH(QString, length);
    QFETCH(QString, unit);
    QFETCH(bool, tolerance);
    const SearchCondition condition =
        SearchConditionOf({QString(), QString(), length, unit, tolerance},
                          QLocale(QLocale::German, QLocale::Germany));
    QTEST(condition.whereClause, "whereClause");
    QVERIFY(!condition.isEmpty);
    QVERIFY(condition.usesLength);
}

void TestProductSearch::testLengthThatIsNotUsed_data()
{
    QTest::addColumn<QString>("length");
    for (const char *length : {"", "  ", "0", "-5", "0.0", "abc", "12abc", "1,000", "14,5", "nan",
                               "inf", "999999999999", "1e300"})
        QTest::addRow("'%s'", length) << Text(length);
}

void TestProductSearch::testLengthThatIsNotUsed()
{
    QFETCH(QString, length);
    for (const bool tolerance : {false, true}) {
        const SearchCondition condition =
            SearchConditionOf({QString(), QString(), length, Text("cm"), tolerance}, QLocale::c());
        QVERIFY(condition.isEmpty);
        QVERIFY(!condition.usesLength);
    }
}

void TestProductSearch::testAllTogether()
{
    const SearchCondition condition = SearchConditionOf(
        {Text("schere spitz"), Text("AB12"), Text("14.5"), Text("cm"), false}, QLocale::c());
    QCOMPARE(condition.whereClause,
             Text(" WHERE  (l.name LIKE '%schere%')  AND (l.name LIKE '%spitz%')  AND"
                  " p.artNr LIKE '%AB 12%' AND p.length=145"));
    QVERIFY(condition.usesLength);
}

void TestProductSearch::testLengthBesideADescription()
{
    const SearchCondition condition =
        SearchConditionOf({Text("schere AND gebogen"), QString(), Text("14,5"), Text("cm"), false},
                          QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(condition.whereClause, Text(" WHERE  (l.name LIKE '%schere%')  AND"
                                         " (l.name LIKE '%gebogen%')  AND p.length=145"));
}

void TestProductSearch::testUnreadableLengthBesideADescription()
{
    QTest::ignoreMessage(QtInfoMsg,
                         QRegularExpression(QStringLiteral("^The length is not used: \"abc\" ")));
    const SearchCondition condition = SearchConditionOf(
        {Text("schere"), QString(), Text("abc"), Text("cm"), false}, QLocale::c());
    QCOMPARE(condition.whereClause, Text(" WHERE  (l.name LIKE '%schere%') "));
    QVERIFY(!condition.isEmpty);
    QVERIFY(!condition.usesLength);
}

void TestProductSearch::testNothing()
{
    const SearchCondition condition =
        SearchConditionOf({Text("   "), Text(" "), QString(), Text("mm"), false}, QLocale::c());
    QVERIFY(condition.isEmpty);
    QCOMPARE(condition.whereClause, Text(" WHERE "));
}

QTEST_APPLESS_MAIN(TestProductSearch)
#include "TestProductSearch.moc"
