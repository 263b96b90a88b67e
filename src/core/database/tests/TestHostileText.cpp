#include "core/CatalogueQueries.h"
#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tesk;
using namespace Tesk::Database;

namespace {

QString Text(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

/// The user's text goes into the statements as it is: whatever it says, it reaches nothing.
class TestHostileText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void testStatementIsRefused_data();
    void testStatementIsRefused();
    void testSearchTextChangesNothing_data();
    void testSearchTextChangesNothing();
    void testEndlessStatementEnds_data();
    void testEndlessStatementEnds();
    void testHugeResultEnds();
    void testLongSearchText_data();
    void testLongSearchText();

private:
    QString Path(const char *name) const { return folder->filePath(QLatin1String(name)); }
    QStringList Files() const;
    QString Filled(QString text) const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<SQLiteWrapper> database;
    QByteArray source;
    QStringList files;
};

void TestHostileText::init()
{
    folder = std::make_unique<QTemporaryDir>();
    source = BytesOf(SampleFile(QStringLiteral("catalog.db")));
    WriteBytes(Path("catalog.db"), source);
    WriteVersion3(Path("secret.db"), "CREATE TABLE secret (x); INSERT INTO secret VALUES ('told')");
    database = std::make_unique<SQLiteWrapper>(Path("cache"));
    QVERIFY(database->Open(Path("catalog.db")));
    files = Files();
}

/// Whatever was tried, the catalogue still answers and no file came, went or changed.
void TestHostileText::cleanup()
{
    QCOMPARE(database->GetTable(Text("SELECT ID FROM products_global")).UpperRow(), 150);
    QCOMPARE(Files(), files);
    QCOMPARE(BytesOf(Path("catalog.db")), source);
}

/// Every file with its size and a check of its content.
QStringList TestHostileText::Files() const
{
    QStringList entries;
    for (const char *name : {"", "cache"}) {
        const QDir dir(Path(name));
        for (const QString &file : dir.entryList(QDir::Files)) {
            const QByteArray bytes = BytesOf(dir.filePath(file));
            entries.append(
                QStringLiteral("%1 %2 %3").arg(file).arg(bytes.size()).arg(qHash(bytes)));
        }
    }
    return entries;
}

QString TestHostileText::Filled(QString text) const
{
    return text.replace(QLatin1String("FOLDER"), folder->path());
}

void TestHostileText::testStatementIsRefused_data()
{
    QTest::addColumn<QString>("sql");
    for (const char *sql :
         {"DROP TABLE products_global",
          "DELETE FROM products_global",
          "UPDATE products_global SET artNr=''",
          "INSERT INTO categories (ID) VALUES ('1')",
          "CREATE TABLE x (y)",
          "CREATE TEMP TABLE x (y)",
          "ALTER TABLE categories RENAME TO x",
          "CREATE VIEW x AS SELECT 1",
          "ATTACH 'FOLDER/secret.db' AS s",
          "ATTACH 'FOLDER/new.db' AS s",
          "DETACH main",
          "VACUUM",
          "VACUUM INTO 'FOLDER/copy.db'",
          "REINDEX",
          "ANALYZE",
          "BEGIN",
          "SAVEPOINT x",
          "PRAGMA user_version",
          "PRAGMA user_version = 7",
          "PRAGMA writable_schema = ON",
          "PRAGMA query_only = OFF",
          "PRAGMA journal_mode = WAL",
          "EXPLAIN SELECT 1",
          "EXPLAIN QUERY PLAN SELECT ID FROM categories",
          "SELECT load_extension('FOLDER/x.so')",
          "SELECT writefile('FOLDER/x', 'y')",
          "SELECT readfile('FOLDER/catalog.db')",
          "SELECT edit('x', 'true')",
          "SELECT fts3_tokenizer('simple')",
          "SELECT zeroblob(1000000000)",
          "SELECT randomblob(1000000000)",
          "SELECT printf('%1000000000d', 1)",
          "SELECT group_concat(artNr) FROM products_global",
          "SELECT sqlite_version()",
          "SELECT * FROM sqlite_master",
          "SELECT * FROM sqlite_stat1",
          "SELECT * FROM sqlite_schema",
          "SELECT * FROM pragma_table_info('categories')",
          "SELECT * FROM pragma_database_list",
          "SELECT * FROM json_each('[1]')",
          "SELECT * FROM sqlite_dbpage",
          "SELECT * FROM dbstat",
          "SELECT * FROM generate_series(1, 10)",
          "SELECT * FROM sqlite_stmt",
          "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x+1 FROM n) SELECT count(*) FROM n"})
        QTest::newRow(sql) << Text(sql);
}

void TestHostileText::testStatementIsRefused()
{
    QFETCH(QString, sql);
    QString error;
    QCOMPARE(database->GetTable(Filled(sql), &error).UpperRow(), -1);
    QVERIFY(!error.isEmpty());
}

void TestHostileText::testSearchTextChangesNothing_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"'",
                             "''",
                             "\"",
                             "'; DROP TABLE products_global; --",
                             "%'; DELETE FROM products_global; --",
                             "'; ATTACH 'FOLDER/new.db' AS n; --",
                             "%' union select load_extension('x'),1 --",
                             "%') union select sql, 1 from sqlite_master --",
                             "%' union select x from secret --",
                             "'; PRAGMA writable_schema=1; --",
                             "'; VACUUM INTO 'FOLDER/copy.db'; --",
                             "%' or 1=1 --",
                             "%') or (1=1",
                             "x' and 1=0 --",
                             "(((((((((",
                             ")))))",
                             "/*",
                             "*/",
                             "--",
                             ";",
                             "[",
                             "`",
                             "\\",
                             "%_%_%",
                             "'||'",
                             "0x10",
                             "?1",
                             ":a",
                             "@b",
                             "$c",
                             "NULL",
                             "1e999",
                             "a\tb\nc",
                             "名前",
                             "😀",
                             "'\xc5\x93'"})
        QTest::newRow(text) << Text(text);
    QTest::newRow("NUL") << Text("a") + QChar(QChar::Null) + Text("'; DROP TABLE categories; --");
    QTest::newRow("NUL and apostrophe") << Text("x%' --") + QChar(QChar::Null);
    QTest::newRow("half a character") << QString(QChar(0xd83d));
}

void TestHostileText::testSearchTextChangesNothing()
{
    QFETCH(QString, text);
    text = Filled(text);
    const CatalogueQueries queries(
        *database, [] { return QStringLiteral("ge"); }, QLocale::c());
    // None of them throws or ends; what rows come is the text's own matter.
    queries.QueryProductsOfCategory(text);
    queries.QuerySetMembers(text);
    queries.QueryProduct(text);
    queries.FindProductIdsByArtNr(text);
    queries.FindProductIdsByRefNo(text);
    queries.FindArtNrsByRefNo(text);
    queries.HasSingleProducts(text);
    queries.SearchProducts(text, QString(), QString(), QStringLiteral("mm"), false);
    queries.SearchProducts(QString(), text, QString(), QStringLiteral("mm"), false);
    queries.SearchProducts(QString(), QString(), text, text, false);
    queries.SearchCompetition(text, QString());
    queries.SearchCompetition(QStringLiteral("1"), text);
    queries.SearchByArtNr(text);
    queries.SearchByDescription(text);
}

void TestHostileText::testEndlessStatementEnds_data()
{
    QTest::addColumn<QString>("sql");
    QTest::newRow("product of tables")
        << Text("SELECT count(*) FROM products_localized a, products_localized b,"
                " products_localized c, products_localized d");
    QTest::newRow("in a search") << Text("SELECT p.ID FROM products_global p WHERE p.artNr LIKE '%'"
                                         " and (select count(*) from products_localized a,"
                                         " products_localized b, products_localized c) > 1");
    QTest::newRow("sorted") << Text("SELECT a.name FROM products_localized a, products_localized b,"
                                    " products_localized c, products_localized d"
                                    " WHERE a.name > d.name||c.name ORDER BY b.name, d.form");
}

void TestHostileText::testEndlessStatementEnds()
{
    QFETCH(QString, sql);
    QString error;
    QCOMPARE(database->GetTable(sql, &error).UpperRow(), -1);
    QCOMPARE(error, Text("the statement takes too long"));
}

void TestHostileText::testHugeResultEnds()
{
    QString error;
    const char *sql = "SELECT * FROM products_global a, products_global b, products_global c";
    QCOMPARE(database->GetTable(Text(sql), &error).UpperRow(), -1);
    QVERIFY2(error == Text("the result is too large") ||
                 error == Text("the statement takes too long"),
             qPrintable(error));
}

void TestHostileText::testLongSearchText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("finds");
    QTest::newRow("one word") << QString(10000, u'x') << false;
    QTest::newRow("words") << Text("schere ").repeated(1428) + Text("sche") << true;
    QTest::newRow("single letters") << Text("e ").repeated(5000) << true;
    QTest::newRow("blanks between")
        << Text("Schere") + QString(9988, u' ') + Text("Müller") << true;
    QTest::newRow("wildcards") << QString(10000, u'%') << true;
    QTest::newRow("masked") << QString(10000, u'_') << false;
}

void TestHostileText::testLongSearchText()
{
    QFETCH(QString, text);
    QFETCH(bool, finds);
    QCOMPARE(text.size(), 10000);
    const QString statement =
        Text("SELECT p.ID FROM products_global p INNER JOIN products_localized l"
             " ON (p.ID=l.ID AND l.lang='ge')  WHERE ") +
        Text(" (l.name LIKE '%") + text.split(u' ').join(Text("%')  AND (l.name LIKE '%")) +
        Text("%')  order by p.artNr");
    QString error;
    const ResultTable table = database->GetTable(statement, &error);
    QCOMPARE(error, QString());
    QCOMPARE(table.HasData(), finds);

    const CatalogueQueries queries(
        *database, [] { return QStringLiteral("ge"); }, QLocale::c());
    QCOMPARE(queries.SearchByDescription(text).UpperRow(), table.UpperRow());
}

QTEST_APPLESS_MAIN(TestHostileText)
#include "TestHostileText.moc"
