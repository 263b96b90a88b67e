#include "sqlite2/Error.h"
#include "sqlite2/Statements.h"

#include <QTest>

using namespace Sqlite2;

namespace {

using Names = std::vector<std::string>;
using Keys = std::vector<std::vector<std::size_t>>;

Names ColumnNames(const TableDeclaration &declaration)
{
    Names names;
    for (const Column &column : declaration.table.columns)
        names.push_back(column.name);
    return names;
}

Names Types(const TableDeclaration &declaration)
{
    Names types;
    for (const Column &column : declaration.table.columns)
        types.push_back(column.declaredType);
    return types;
}

int RowIdColumn(std::string_view sql)
{
    return ParseCreateTable(sql).table.rowIdColumn;
}

} // namespace

class CreateTableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testNameAndColumnsWithoutTypes();
    void testQuotedNames();
    void testDoubledQuotesInNames();
    void testNamesWithBytesAbove127();
    void testTypesOfSeveralWordsWithBrackets();
    void testCommentsAndLineEnds();
    void testDefaultsThatHoldCommasAndBrackets();
    void testDefaultThatLooksLikeAKeyword();
    void testNegativeDefault();
    void testCheckWithNestedBrackets();
    void testReferencesAndDeferral();
    void testConflictRules();
    void testKeywordsInAnyCase();
    void testTrailingSemicolon();

    void testIntegerPrimaryKeyIsTheRowId_data();
    void testIntegerPrimaryKeyIsTheRowId();
    void testOtherPrimaryKeysAreNot_data();
    void testOtherPrimaryKeysAreNot();
    void testUniqueKeysInTheOrderOfTheirDeclaration();
    void testTableConstraintsWithoutComma();

    void testUnreadableStatementsAreErrors_data();
    void testUnreadableStatementsAreErrors();

    void testTypeClasses_data();
    void testTypeClasses();

    void testCreateIndex();
    void testCreateUniqueIndexWithConflictRule();
    void testUnreadableIndexesAreErrors_data();
    void testUnreadableIndexesAreErrors();
};

void CreateTableTest::testNameAndColumnsWithoutTypes()
{
    const auto declaration = ParseCreateTable("CREATE TABLE t1 (a, b,c)");
    QCOMPARE(declaration.table.name, std::string("t1"));
    QVERIFY((ColumnNames(declaration) == Names{"a", "b", "c"}));
    QVERIFY((Types(declaration) == Names{"", "", ""}));
    QCOMPARE(declaration.table.rowIdColumn, -1);
}

void CreateTableTest::testQuotedNames()
{
    const auto declaration =
        ParseCreateTable("CREATE TABLE [my table]('first one' TEXT, \"second, (one)\" INT, [a b])");
    QCOMPARE(declaration.table.name, std::string("my table"));
    QVERIFY((ColumnNames(declaration) == Names{"first one", "second, (one)", "a b"}));
    QVERIFY((Types(declaration) == Names{"TEXT", "INT", ""}));
}

void CreateTableTest::testDoubledQuotesInNames()
{
    const auto declaration = ParseCreateTable("create table \"a\"\"b\" ('it''s' text)");
    QCOMPARE(declaration.table.name, std::string("a\"b"));
    QVERIFY(ColumnNames(declaration) == Names{"it's"});
}

void CreateTableTest::testNamesWithBytesAbove127()
{
    QVERIFY(ColumnNames(ParseCreateTable("CREATE TABLE t(gr\xf6\xdf"
                                         "e INT)")) == Names{"gr\xf6\xdf"
                                                             "e"});
}

void CreateTableTest::testTypesOfSeveralWordsWithBrackets()
{
    const auto declaration = ParseCreateTable(
        "CREATE TABLE t(a LONG VARCHAR ( 20 ), b DECIMAL(10, -2) NOT NULL, c unsigned big int)");
    QVERIFY((Types(declaration) ==
             Names{"LONG VARCHAR ( 20 )", "DECIMAL(10, -2)", "unsigned big int"}));
}

void CreateTableTest::testCommentsAndLineEnds()
{
    const auto declaration = ParseCreateTable("CREATE TABLE t( -- the key, (really)\r\n"
                                              "  id INTEGER /* ' \" , ( */ PRIMARY KEY,\n"
                                              "\tname TEXT -- a name\n"
                                              ") /* the end");
    QVERIFY((ColumnNames(declaration) == Names{"id", "name"}));
    QVERIFY((Types(declaration) == Names{"INTEGER", "TEXT"}));
    QCOMPARE(declaration.table.rowIdColumn, 0);
}

void CreateTableTest::testDefaultsThatHoldCommasAndBrackets()
{
    const auto declaration = ParseCreateTable(
        "CREATE TABLE t(a TEXT DEFAULT 'x,(y', b DEFAULT \"),\" NOT NULL, c DEFAULT (1, (2)), d)");
    QVERIFY((ColumnNames(declaration) == Names{"a", "b", "c", "d"}));
    QVERIFY((Types(declaration) == Names{"TEXT", "", "", ""}));
}

void CreateTableTest::testDefaultThatLooksLikeAKeyword()
{
    const auto declaration = ParseCreateTable("CREATE TABLE t(a INTEGER DEFAULT unique, b)");
    QVERIFY(declaration.uniqueKeys.empty());
    QVERIFY((ColumnNames(declaration) == Names{"a", "b"}));
}

void CreateTableTest::testNegativeDefault()
{
    const auto declaration =
        ParseCreateTable("CREATE TABLE t(a INT DEFAULT -1, b DEFAULT +2.5 UNIQUE)");
    QVERIFY((ColumnNames(declaration) == Names{"a", "b"}));
    QVERIFY(declaration.uniqueKeys == Keys{{1}});
}

void CreateTableTest::testCheckWithNestedBrackets()
{
    const auto declaration = ParseCreateTable(
        "CREATE TABLE t(a INT CHECK (a IN (1, 2) AND (a > 0)), b, CHECK (b<>')'))");
    QVERIFY((ColumnNames(declaration) == Names{"a", "b"}));
}

void CreateTableTest::testReferencesAndDeferral()
{
    const auto declaration = ParseCreateTable(
        "CREATE TABLE t(a INT REFERENCES other(x, y) ON DELETE CASCADE NOT DEFERRABLE INITIALLY "
        "IMMEDIATE, b, CONSTRAINT fk FOREIGN KEY (a, b) REFERENCES o(c, d) MATCH full)");
    QVERIFY((ColumnNames(declaration) == Names{"a", "b"}));
    QVERIFY((Types(declaration) == Names{"INT", ""}));
    QVERIFY(declaration.uniqueKeys.empty());
}

void CreateTableTest::testConflictRules()
{
    const auto declaration = ParseCreateTable(
        "CREATE TABLE t(a INTEGER PRIMARY KEY ON CONFLICT REPLACE, b NOT NULL ON CONFLICT IGNORE)");
    QCOMPARE(declaration.table.rowIdColumn, 0);
    QVERIFY((ColumnNames(declaration) == Names{"a", "b"}));
}

void CreateTableTest::testKeywordsInAnyCase()
{
    QCOMPARE(RowIdColumn("cReAtE tAbLe t(x, k iNtEgEr pRiMaRy kEy)"), 1);
}

void CreateTableTest::testTrailingSemicolon()
{
    QVERIFY(ColumnNames(ParseCreateTable("CREATE TABLE t(a);")) == Names{"a"});
}

void CreateTableTest::testIntegerPrimaryKeyIsTheRowId_data()
{
    QTest::addColumn<QByteArray>("sql");
    QTest::addColumn<int>("column");
    QTest::newRow("behind the column")
        << QByteArray("CREATE TABLE t(a INTEGER PRIMARY KEY, b)") << 0;
    QTest::newRow("with a sort order")
        << QByteArray("CREATE TABLE t(b, a integer PRIMARY KEY DESC)") << 1;
    QTest::newRow("as a constraint")
        << QByteArray("CREATE TABLE t(b, a INTEGER, PRIMARY KEY(A))") << 1;
    QTest::newRow("as a named constraint")
        << QByteArray("CREATE TABLE t(b, a INTEGER, CONSTRAINT pk PRIMARY KEY ([a] ASC))") << 1;
    QTest::newRow("behind other constraints")
        << QByteArray("CREATE TABLE t(a Integer NOT NULL DEFAULT 'x' PRIMARY KEY)") << 0;
    QTest::newRow("quoted name") << QByteArray("CREATE TABLE t('a' INTEGER, PRIMARY KEY (\"a\"))")
                                 << 0;
}

void CreateTableTest::testIntegerPrimaryKeyIsTheRowId()
{
    QFETCH(QByteArray, sql);
    QFETCH(int, column);
    const auto declaration = ParseCreateTable(sql.toStdString());
    QCOMPARE(declaration.table.rowIdColumn, column);
    QVERIFY(declaration.uniqueKeys.empty());
}

void CreateTableTest::testOtherPrimaryKeysAreNot_data()
{
    QTest::addColumn<QByteArray>("sql");
    QTest::newRow("INT") << QByteArray("CREATE TABLE t(a INT PRIMARY KEY, b)");
    QTest::newRow("size") << QByteArray("CREATE TABLE t(a INTEGER(4) PRIMARY KEY)");
    QTest::newRow("two words") << QByteArray("CREATE TABLE t(a UNSIGNED INTEGER PRIMARY KEY)");
    QTest::newRow("no type") << QByteArray("CREATE TABLE t(a PRIMARY KEY)");
    QTest::newRow("two columns") << QByteArray("CREATE TABLE t(a INTEGER, b, PRIMARY KEY (a, b))");
    QTest::newRow("text") << QByteArray("CREATE TABLE t(a TEXT, PRIMARY KEY (a))");
}

void CreateTableTest::testOtherPrimaryKeysAreNot()
{
    QFETCH(QByteArray, sql);
    const auto declaration = ParseCreateTable(sql.toStdString());
    QCOMPARE(declaration.table.rowIdColumn, -1);
    QCOMPARE(declaration.uniqueKeys.size(), std::size_t{1});
    QVERIFY(QByteArray(QTest::currentDataTag()) != "two columns" ||
            (declaration.uniqueKeys.front() == std::vector<std::size_t>{0, 1}));
}

void CreateTableTest::testUniqueKeysInTheOrderOfTheirDeclaration()
{
    const auto declaration = ParseCreateTable(
        "CREATE TABLE t(a UNIQUE, b INT, c INTEGER PRIMARY KEY, UNIQUE (b, a), UNIQUE(c))");
    QVERIFY((declaration.uniqueKeys == Keys{{0}, {1, 0}, {2}}));
    QCOMPARE(declaration.table.rowIdColumn, 2);
}

void CreateTableTest::testTableConstraintsWithoutComma()
{
    const auto declaration =
        ParseCreateTable("CREATE TABLE t(a INTEGER, b, PRIMARY KEY (a) UNIQUE (b) CHECK (a > 0))");
    QCOMPARE(declaration.table.rowIdColumn, 0);
    QVERIFY(declaration.uniqueKeys == Keys{{1}});
}

void CreateTableTest::testUnreadableStatementsAreErrors_data()
{
    QTest::addColumn<QByteArray>("sql");
    const QList<QByteArray> statements{
        "",
        "CREATE",
        "CREATE TABLE",
        "CREATE TABLE t",
        "CREATE TABLE t(",
        "CREATE TABLE t()",
        "CREATE TABLE t(a",
        "CREATE TABLE t(a,",
        "CREATE TABLE t(a,)",
        "CREATE TABLE t(,a)",
        "CREATE TABLE t(a) x",
        "CREATE TABLE t(a))",
        "CREATE TABLE t(a);;",
        "CREATE TABLE (a)",
        "CREATE TABLE 1(a)",
        "CREATE TABLE t(1)",
        "CREATE TABLE t(a TEXT(",
        "CREATE TABLE t(a TEXT(1)",
        "CREATE TABLE t(a TEXT((1)))",
        "CREATE TABLE t(a CHECK (1)",
        "CREATE TABLE t('a)",
        "CREATE TABLE t(\"a)",
        "CREATE TABLE t([a)",
        "CREATE TABLE t(a, A)",
        "CREATE TABLE t(a INTEGER PRIMARY KEY, b INTEGER PRIMARY KEY)",
        "CREATE TABLE t(a, PRIMARY KEY (b))",
        "CREATE TABLE t(a, PRIMARY KEY ())",
        "CREATE TABLE t(PRIMARY KEY (a))",
        "CREATE TABLE t(UNIQUE (a))",
        "CREATE TABLE t(a, UNIQUE)",
        "CREATE TABLE t(a + 1)",
        "CREATE TABLE t(a \x01)",
        "CREATE VIEW v AS SELECT 1",
        "CREATE TEMP TABLE t(a)",
        "CREATE INDEX i ON t(a)",
        "/* only a comment",
    };
    for (const QByteArray &sql : statements)
        QTest::newRow(sql.isEmpty() ? "empty" : sql.constData()) << sql;
}

void CreateTableTest::testUnreadableStatementsAreErrors()
{
    QFETCH(QByteArray, sql);
    QVERIFY_THROWS_EXCEPTION(Error, ParseCreateTable(sql.toStdString()));
}

void CreateTableTest::testTypeClasses_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<bool>("isText");
    for (const char *type : {"TEXT", "varchar(10)", "NATIONAL CHARACTER", "Clob", "longblob"})
        QTest::newRow(type) << QByteArray(type) << true;
    for (const char *type : {"", "INTEGER", "DOUBLE", "numeric(10,2)", "date"})
        QTest::newRow(*type ? type : "none") << QByteArray(type) << false;
}

void CreateTableTest::testTypeClasses()
{
    QFETCH(QByteArray, type);
    QFETCH(bool, isText);
    const Column column{"c", type.toStdString()};
    QCOMPARE(column.Class() == TypeClass::Text, isText);
}

void CreateTableTest::testCreateIndex()
{
    const auto declaration =
        ParseCreateIndex("CREATE INDEX 'by name' ON [the table] (a, \"b c\" DESC)");
    QCOMPARE(declaration.index.name, std::string("by name"));
    QCOMPARE(declaration.tableName, std::string("the table"));
    QVERIFY((declaration.index.columns == Names{"a", "b c"}));
    QVERIFY(!declaration.index.isUnique);
}

void CreateTableTest::testCreateUniqueIndexWithConflictRule()
{
    const auto declaration =
        ParseCreateIndex("create unique index i on t(a asc) on conflict replace;");
    QVERIFY(declaration.index.isUnique);
    QVERIFY(declaration.index.columns == Names{"a"});
}

void CreateTableTest::testUnreadableIndexesAreErrors_data()
{
    QTest::addColumn<QByteArray>("sql");
    for (const char *sql :
         {"CREATE INDEX", "CREATE INDEX i ON t", "CREATE INDEX i ON t()", "CREATE INDEX i ON t(a",
          "CREATE INDEX i t(a)", "CREATE INDEX i ON t(a,)", "CREATE INDEX i ON t(a) where",
          "CREATE INDEX i ON t(a+1)"})
        QTest::newRow(sql) << QByteArray(sql);
}

void CreateTableTest::testUnreadableIndexesAreErrors()
{
    QFETCH(QByteArray, sql);
    QVERIFY_THROWS_EXCEPTION(Error, ParseCreateIndex(sql.toStdString()));
}

QTEST_GUILESS_MAIN(CreateTableTest)
#include "CreateTableTest.moc"
