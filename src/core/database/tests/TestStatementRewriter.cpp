#include "core/database/Connection.h"
#include "core/database/StatementRewriter.h"

#include <QTest>

using namespace Tesk::Database;

/// What a statement becomes. Answers of the rewritten statements are other tests' matter.
class TestStatementRewriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        connection = OpenMemory();
        Execute(connection.get(),
                "CREATE TABLE p (ID TEXT COLLATE tesk_numeric,"
                " artNr TEXT COLLATE tesk_text, length TEXT COLLATE tesk_numeric);"
                "CREATE TABLE l (ID TEXT COLLATE tesk_numeric,"
                " name TEXT COLLATE tesk_text);"
                "CREATE TABLE i (k ROW ID TEXT COLLATE tesk_numeric,"
                " t TEXT COLLATE tesk_text);"
                "CREATE TABLE \"odd name\" (\"a b\" TEXT COLLATE tesk_text);"
                "CREATE VIEW v AS SELECT ID FROM p");
        schema = TableSchema(connection.get());
    }

    void testRowOrder_data()
    {
        QTest::addColumn<QByteArray>("sql");
        QTest::addColumn<QByteArray>("rewritten");
        const auto add = [](const char *name, const char *sql, const char *rewritten) {
            QTest::newRow(name) << QByteArray(sql) << QByteArray(rewritten);
        };
        const auto keep = [&add](const char *name, const char *sql) { add(name, sql, sql); };

        add("one table", "select artNr from p where artNr='a'",
            "select artNr from p where artNr='a' ORDER BY \"p\".rowid");
        add("alias", "select x.artNr from p x", "select x.artNr from p x ORDER BY \"x\".rowid");
        add("alias with AS", "select x.artNr from p as x",
            "select x.artNr from p as x ORDER BY \"x\".rowid");
        add("alias written as a text", "select x.artNr from p 'x'",
            "select x.artNr from p 'x' ORDER BY \"x\".rowid");
        add("order of its own", "select artNr from p order by artNr desc",
            "select artNr from p order by artNr desc, \"p\".rowid");
        add("join", "select * from p inner join l on (p.ID=l.ID) order by artNr",
            "select * from p inner join l on (p.ID=l.ID) order by artNr, +\"p\".rowid, "
            "+\"l\".rowid");
        add("comma", "select * from p, l x",
            "select * from p, l x ORDER BY +\"p\".rowid, +\"x\".rowid");
        add("left join", "select * from p left outer join l on p.ID=l.ID",
            "select * from p left outer join l on p.ID=l.ID ORDER BY +\"p\".rowid, +\"l\".rowid");
        add("limit", "select artNr from p limit 20 offset 3",
            "select artNr from p ORDER BY \"p\".rowid limit 20 offset 3");
        add("order and limit", "select artNr from p order by 1 limit 2",
            "select artNr from p order by 1, \"p\".rowid limit 2");
        add("before a comment", "select artNr from p -- all",
            "select artNr from p ORDER BY \"p\".rowid -- all");
        add("before the next statement", "select artNr from p; delete from p",
            "select artNr from p ORDER BY \"p\".rowid; delete from p");
        add("odd name", "select * from [odd name]",
            "select * from [odd name] ORDER BY \"odd name\".rowid");
        add("choice among arguments", "select max(ID, length) from p",
            "select max(ID, length) from p ORDER BY \"p\".rowid");
        add("words in a text", "select 'from l order by' from p",
            "select 'from l order by' from p ORDER BY \"p\".rowid");

        keep("aggregate", "select count(*) as res from p, l");
        keep("aggregate of one argument", "select max(length) from p");
        keep("grouped", "select artNr from p group by artNr");
        keep("distinct", "select distinct artNr from p");
        keep("compound", "select ID from p union select ID from l");
        keep("sub-select", "select * from (select ID from p) x");
        keep("table function", "select * from pragma_table_info('p')");
        keep("view", "select * from v");
        keep("unknown table", "select * from nowhere");
        keep("a table twice under one name", "select * from p, p");
        keep("no table", "select 1");
        keep("no query", "delete from p");
        keep("with", "with x as (select 1) select * from x");
        keep("open text", "select artNr from p where artNr like 'it's'");
        keep("nothing", "");
    }

    void testRowOrder()
    {
        QFETCH(QByteArray, sql);
        const RewrittenStatement statement = RewriteStatement(sql, schema);
        QTEST(statement.sql, "rewritten");
        QCOMPARE(statement.original, sql);
    }

    void testComparisons_data()
    {
        QTest::addColumn<QByteArray>("condition");
        QTest::addColumn<QByteArray>("rewritten");
        const auto add = [](const char *condition, const char *rewritten) {
            QTest::newRow(condition) << QByteArray(condition) << QByteArray(rewritten);
        };
        const auto keep = [&add](const char *condition) { add(condition, condition); };

        add("p.artNr=7", "p.artNr COLLATE tesk_numeric='7'");
        add("artNr = -7.50", "artNr COLLATE tesk_numeric = '-7.50'");
        add("artNr = +7", "artNr COLLATE tesk_numeric = '7'");
        add("7 < artNr", "'7' < artNr COLLATE tesk_numeric");
        add("not artNr >= 7 or length<>007",
            "not artNr COLLATE tesk_numeric >= '7' or length COLLATE tesk_numeric<>'007'");
        add("(artNr=7)", "(artNr COLLATE tesk_numeric='7')");
        add("artNr between 130 AND 160", "artNr COLLATE tesk_numeric between '130' AND '160'");
        add("p.length not between 1 and 2 and 3=artNr",
            "p.length COLLATE tesk_numeric not between '1' and '2' and"
            " '3'=artNr COLLATE tesk_numeric");
        add("artNr=length", "artNr COLLATE tesk_numeric=length");
        add("length=artNr", "length COLLATE tesk_numeric=artNr");
        add("case when artNr=7 then 1 else 0 end",
            "case when artNr COLLATE tesk_numeric='7' then 1 else 0 end");
        add("length=12345678901234567890", "length COLLATE tesk_numeric='12345678901234567890'");

        keep("artNr='7'");
        keep("length='7'");
        keep("p.ID=length");
        keep("artNr+1=7");
        keep("1+artNr=7");
        keep("artNr=7+1");
        keep("artNr||'x'=7");
        keep("artNr=7 collate nocase");
        keep("artNr=.5");
        keep("artNr between 1 and length=7");
        keep("length+0 between 1 and artNr=7"); // (length+0 between 1 and artNr)=7
        keep("artNr between 'a' and 'b'");
        keep("artNr like 7");
        keep("artNr is 7");
        keep("artNr in (7, 8)");
        keep("upper(artNr)=7");
        keep("nothing=7");
        keep("q.artNr=7");
        keep("ID in (select ID from l where name=7)");
    }

    void testComparisons()
    {
        QFETCH(QByteArray, condition);
        QFETCH(QByteArray, rewritten);
        const QByteArray start("select count(*) from p where ");
        QCOMPARE(RewriteStatement(start + condition, schema).sql, start + rewritten);
    }

    void testBareNameOfTwoTablesIsLeftAlone()
    {
        const QByteArray sql("select count(*) from p, l where ID=7 and name=8");
        QCOMPARE(RewriteStatement(sql, schema).sql,
                 QByteArray("select count(*) from p, l where ID=7"
                            " and name COLLATE tesk_numeric='8'"));
    }

    void testHints_data()
    {
        QTest::addColumn<QByteArray>("condition");
        QTest::addColumn<QByteArray>("rewritten");
        const auto add = [](const char *condition, const char *rewritten) {
            QTest::newRow(condition) << QByteArray(condition) << QByteArray(rewritten);
        };
        const auto keep = [&add](const char *condition) { add(condition, condition); };

        add("artNr like '%a%'", "unlikely(artNr like '%a%')");
        add(" (p.artNr LIKE '%a%')  AND (p.artNr LIKE '%b%') ",
            " (unlikely(p.artNr LIKE '%a%'))  AND (unlikely(p.artNr LIKE '%b%')) ");
        add("ID='1' and artNr like 'a' and length='2'",
            "ID='1' and unlikely(artNr like 'a') and length='2'");
        add("length between (1 and 2) and 3 and artNr like 'a'",
            "length between (1 and 2) and 3 and unlikely(artNr like 'a')");
        keep("length between '1' and artNr like 'a'"); // (length between '1' and artNr) like 'a'
        keep("(length between ('1') and artNr like 'a')");
        keep("artNr not like 'a'");
        keep("artNr like 'a' escape 'b'");
        keep("artNr like 'a'||'b'");
        keep("'x'||artNr like 'a'");
        keep("artNr like upper('a')");
        keep("artNr like 'a' or length='1'");
        keep("artNr='x' or artNr like 'a'");
        keep("case artNr like 'a' when 1 then 2 end");
    }

    void testHints()
    {
        QFETCH(QByteArray, condition);
        QFETCH(QByteArray, rewritten);
        const QByteArray start("select count(*) from p where ");
        QCOMPARE(RewriteStatement(start + condition, schema).sql, start + rewritten);
    }

    void testLongConjunctionHasNoHints()
    {
        const QByteArray sql("select count(*) from p where " +
                             QByteArrayList(300, "artNr like 'a'").join(" AND "));
        QVERIFY(!RewriteStatement(sql, schema).sql.contains("unlikely"));
    }

    void testLongConjunctionIsGrouped()
    {
        // 225 conditions make 15 groups of 15.
        QByteArrayList conditions(225, "length between '1' and '2'");
        const QByteArray start("select count(*) from p where ");
        QByteArrayList groups;
        for (int group = 0; group < 15; ++group)
            groups.append('(' + QByteArrayList(conditions.first(15)).join(" and ") + ')');
        QCOMPARE(RewriteStatement(start + conditions.join(" and "), schema).sql,
                 start + groups.join(" and "));
    }

    void testShortConjunctionStays()
    {
        const QByteArray sql("select count(*) from p where " +
                             QByteArrayList(200, "artNr='a'").join(" AND "));
        QCOMPARE(RewriteStatement(sql, schema).sql, sql);
    }

    void testConjunctionWithAlternativesStays()
    {
        const QByteArray sql("select count(*) from p where " +
                             QByteArrayList(300, "artNr='a'").join(" AND ") + " or 1");
        QCOMPARE(RewriteStatement(sql, schema).sql, sql);
    }

    void testRowsAreFoundByRowId_data()
    {
        QTest::addColumn<QByteArray>("condition");
        QTest::addColumn<QByteArray>("rewritten");
        const auto add = [](const char *name, const char *condition, const char *rewritten) {
            QTest::newRow(name) << QByteArray(condition) << QByteArray(rewritten);
        };
        add("number", "k=-7", "(k COLLATE tesk_numeric='-7' AND \"i\".rowid=CAST('-7' AS REAL))");
        add("number first", "7 == i . k",
            "('7' == i . k COLLATE tesk_numeric AND \"i\".rowid=CAST('7' AS REAL))");
        add("column", "l.ID=i.k", "(l.ID=i.k AND \"i\".rowid=CAST(l.ID AS REAL))");
        add("text column", "i.k=l.name",
            "(i.k COLLATE tesk_numeric=l.name AND \"i\".rowid=CAST(l.name AS REAL))");
        add("inside others", "not k=7 or t='a'",
            "not (k COLLATE tesk_numeric='7' AND \"i\".rowid=CAST('7' AS REAL)) or t='a'");
        add("not equal", "k<7", "k COLLATE tesk_numeric<'7'");
        add("text", "k='7'", "k='7'");
        add("other column", "l.ID=7", "l.ID COLLATE tesk_numeric='7'");
    }

    void testRowsAreFoundByRowId()
    {
        QFETCH(QByteArray, condition);
        QFETCH(QByteArray, rewritten);
        const QByteArray select = "select count(*) from i, l where ";
        QCOMPARE(RewriteStatement(select + condition, schema).sql, select + rewritten);
    }

    void testRowsWithoutARowIdNameAreNotFoundByIt()
    {
        const Connection other = OpenMemory();
        Execute(other.get(), "CREATE TABLE a (k ROW ID TEXT COLLATE tesk_numeric, rowid TEXT,"
                             " _rowid_ TEXT, oid TEXT)");
        QCOMPARE(RewriteStatement("select k from a where k=7", TableSchema(other.get())).sql,
                 QByteArray("select k from a where k COLLATE tesk_numeric='7'"));
    }

    void testRowIdNameAvoidsColumns()
    {
        const Connection other = OpenMemory();
        Execute(other.get(), "CREATE TABLE a (rowid TEXT); CREATE TABLE b (x TEXT)");
        QCOMPARE(RewriteStatement("select * from b", TableSchema(other.get())).sql,
                 QByteArray("select * from b ORDER BY \"b\"._rowid_"));
    }

private:
    Connection connection;
    TableSchema schema;
};

QTEST_APPLESS_MAIN(TestStatementRewriter)
#include "TestStatementRewriter.moc"
