#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;
using namespace Tesk::Database;

/// The names of a result's columns, for files of both versions.
class TestResultNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void testNames_data();
    void testNames();

private:
    QTemporaryDir folder;
};

void TestResultNames::initTestCase()
{
    WriteVersion2(folder.filePath(QStringLiteral("2.db")),
                  {{"CREATE TABLE p (ID INTEGER PRIMARY KEY, artNr VARCHAR(9))", "p", {{"1", "A"}}},
                   {"CREATE TABLE l (ID INTEGER, name TEXT)", "l", {{"1", "Schere"}}},
                   {"CREATE TABLE \"odd name\" ([a b] TEXT)", "odd name", {{"x"}}}});
    WriteVersion3(folder.filePath(QStringLiteral("3.db")),
                  "CREATE TABLE p (ID INTEGER PRIMARY KEY, artNr VARCHAR(9));"
                  "INSERT INTO p VALUES (1, 'A');"
                  "CREATE TABLE l (ID INTEGER, name TEXT);"
                  "INSERT INTO l VALUES (1, 'Schere');"
                  "CREATE TABLE \"odd name\" ([a b] TEXT);"
                  "INSERT INTO \"odd name\" VALUES ('x')");
}

void TestResultNames::testNames_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QStringList>("names");
    for (const char *file : {"2.db", "3.db"}) {
        const auto add = [this, file](const char *sql, const char *names) {
            QTest::addRow("%s: %s", file, sql)
                << folder.filePath(QLatin1String(file)) << QString::fromLatin1(sql)
                << QString::fromLatin1(names).split(QLatin1Char('~'));
        };
        add("select * from p", "ID~artNr");
        add("select p.* from p", "ID~artNr");
        add("select x.* from p x", "ID~artNr");
        add("select artNr from p", "artNr");
        add("select ARTNR from p", "ARTNR");
        add("select p.artNr, p.ID from p", "p.artNr~p.ID");
        add("select x.artNr from p x", "x.artNr");
        add("select * from p, l", "p.ID~p.artNr~l.ID~l.name");
        add("select x.*, y.name from p x inner join l y on x.ID=y.ID", "x.ID~x.artNr~y.name");
        add("select l.*, p.* from p join l", "l.ID~l.name~p.ID~p.artNr");
        add("select p.*, l.name from p left join l on p.ID=l.ID", "p.ID~p.artNr~l.name");
        add("select x.ID, y.ID from p x, p y", "x.ID~y.ID");
        add("select * from p x, p y", "x.ID~x.artNr~y.ID~y.artNr");
        add("select artNr, name from p, l", "artNr~name");
        add("select count(*) as res from p", "res");
        add("select count(*) from p", "count(*)");
        add("select p.artNr as a, p.ID b, l.name 'c d' from p, l", "a~b~c d");
        add("select ID + 1, 'x'||artNr from p", "ID + 1~'x'||artNr");
        add("select case when ID=1 then 'x' else 'y' end from p",
            "case when ID=1 then 'x' else 'y' end");
        add("select case ID when 1 then 'x' end z from p", "z");
        add("select artNr is null from p", "artNr is null");
        add("select * from [odd name]", "a b");
        add("select o.* from [odd name] o, p", "o.a b");
        add("select [a b] from [odd name]", "a b");
        add("select distinct p.artNr from p", "p.artNr");
        add("select p.ID, p.artNr from p union select l.ID, l.name from l", "p.ID~p.artNr");
        add("select (select name from l) as n, p.ID from p", "n~p.ID");
        add("SELECT p . artNr FROM p", "p.artNr");
    }
}

void TestResultNames::testNames()
{
    QFETCH(QString, file);
    QFETCH(QString, sql);
    SQLiteWrapper database{QString()};
    QVERIFY(database.Open(file));
    QString error;
    const ResultTable table = database.GetTable(sql, &error);
    QCOMPARE(error, QString());
    QTEST(NamesOf(table), "names");
}

QTEST_APPLESS_MAIN(TestResultNames)
#include "TestResultNames.moc"
