#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;
using namespace Tesk::Database;

namespace {

constexpr auto ProductOne = "SELECT p.*, l.name FROM products_global p INNER JOIN"
                            " products_localized l ON (p.ID=l.ID AND l.lang='fr') WHERE p.ID=17";

QString Sql(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

class TestSQLiteWrapper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(database.Open(SampleFile(QStringLiteral("catalog.db")))); }

    void testNoRowsGiveTheEmptyTable();
    void testGetFieldTakesTheQualifiedName();
    void testNullReadsAsTheEmptyText();
    void testFailingStatementTellsItsReason();
    void testErrorTextBecomesEmptyOnSuccess();
    void testOnlyTheFirstStatementRuns();
    void testEmptyStatementsBeforeTheFirstAreSkipped();
    void testStatementEndsAtNul();
    void testEmptyStatementGivesNoRows_data();
    void testEmptyStatementGivesNoRows();
    void testLikeIgnoresCaseOfAsciiLettersOnly();
    void testUnderlineStandsForOneCharacterBeyondAscii();
    void testCharactersOutsideTheCodePageBecomeQuestionMarks();
    void testEveryByteComesBack();
    void testTextOrderIsThatOfTheCodePage();
    void testClosedDatabaseGivesNoRows();
    void testReopenReplacesTheDatabase();
    void testFailedOpenLeavesNothingOpen();
    void testBegunOpenNeedsNothingMoreOfTheFile();
    void testBegunOpenOfAnotherFileIsLeft();
    void testBegunOpenTellsItsFailure();
    void testVersion3FileOpens();
    void testVersion3FileKeepsItsCharacters();
    void testVersion3FileInWriteAheadModeLeavesNoFiles();
    void testVersion3TableWithoutRowIds();
    void testVersion3FileCannotBeWritten();

private:
    SQLiteWrapper database{QString()};
    QTemporaryDir folder;
};

void TestSQLiteWrapper::testNoRowsGiveTheEmptyTable()
{
    const ResultTable table = database.GetTable(Sql("SELECT ID FROM categories WHERE ID=9999"));
    QCOMPARE(table.UpperRow(), -1);
    QCOMPARE(table.ColumnCount(), 0);
}

void TestSQLiteWrapper::testGetFieldTakesTheQualifiedName()
{
    const ResultTable table = database.GetTable(Sql(ProductOne));
    QCOMPARE(table.UpperRow(), 1);
    QCOMPARE(GetField(QStringLiteral("p.artNr"), table, 1), QStringLiteral("AB 10-927-29"));
    QCOMPARE(GetField(QStringLiteral("artNr"), table, 1), QString());
    QCOMPARE(GetField(QStringLiteral("P.ARTNR"), table, 1), QString());
}

void TestSQLiteWrapper::testNullReadsAsTheEmptyText()
{
    // The sample's product 133 has no form.
    const ResultTable table = database.GetTable(
        Sql("SELECT l.form, l.ID FROM products_localized l WHERE l.ID=133 AND l.lang='en'"));
    QCOMPARE(table.UpperRow(), 1);
    QVERIFY(table.IsNull(1, 0));
    QCOMPARE(GetField(QStringLiteral("l.form"), table, 1), QLatin1String(""));
    QVERIFY(!GetField(QStringLiteral("l.form"), table, 1).isNull());
}

void TestSQLiteWrapper::testFailingStatementTellsItsReason()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("nowhere")));
    QString error;
    const ResultTable table = database.GetTable(Sql("SELECT * FROM nowhere"), &error);
    QCOMPARE(table.UpperRow(), -1);
    QVERIFY(error.contains(QLatin1String("no such table")));
}

void TestSQLiteWrapper::testErrorTextBecomesEmptyOnSuccess()
{
    QString error = QStringLiteral("old");
    QVERIFY(database.GetTable(Sql("SELECT ID FROM categories"), &error).HasData());
    QCOMPARE(error, QString());
}

void TestSQLiteWrapper::testOnlyTheFirstStatementRuns()
{
    QString error;
    const ResultTable table =
        database.GetTable(Sql("SELECT 1 as a; SELECT 2 as b; nonsense"), &error);
    QCOMPARE(error, QString());
    QCOMPARE(RowsOf(table), QStringList(QStringLiteral("1")));
}

void TestSQLiteWrapper::testEmptyStatementsBeforeTheFirstAreSkipped()
{
    const ResultTable table =
        database.GetTable(Sql("; ;SELECT c.ID FROM categories c WHERE c.ID=2"));
    QCOMPARE(NamesOf(table), QStringList(QStringLiteral("c.ID")));
    QCOMPARE(RowsOf(table), QStringList(QStringLiteral("2")));
}

void TestSQLiteWrapper::testStatementEndsAtNul()
{
    const QString sql = Sql("SELECT 1 as a") + QChar(QChar::Null) + Sql(" nonsense");
    QCOMPARE(RowsOf(database.GetTable(sql)), QStringList(QStringLiteral("1")));
}

void TestSQLiteWrapper::testEmptyStatementGivesNoRows_data()
{
    QTest::addColumn<QString>("sql");
    QTest::newRow("null") << QString();
    QTest::newRow("blanks") << QStringLiteral("  ");
    QTest::newRow("comment") << QStringLiteral("-- nothing");
    QTest::newRow("NUL") << QString(QChar(QChar::Null));
}

void TestSQLiteWrapper::testEmptyStatementGivesNoRows()
{
    QFETCH(QString, sql);
    QCOMPARE(database.GetTable(sql).UpperRow(), -1);
}

void TestSQLiteWrapper::testLikeIgnoresCaseOfAsciiLettersOnly()
{
    // "Grüner" and "GRÜNER" differ in a letter beyond ASCII.
    const auto count = [this](const char *pattern) {
        return database
            .GetTable(Sql("SELECT count(*) as res FROM products_localized WHERE lang='ge'"
                          " AND name LIKE '%1'")
                          .arg(QString::fromUtf8(pattern)))
            .Text(1, 0);
    };
    QCOMPARE(count("%gRÜNER%"), QStringLiteral("0"));
    QVERIFY(count("%Grüner%") != QLatin1String("0"));
    QCOMPARE(count("%gRüNER%"), count("%Grüner%"));
}

void TestSQLiteWrapper::testUnderlineStandsForOneCharacterBeyondAscii()
{
    const auto rows = [this](const char *pattern) {
        return RowsOf(database.GetTable(Sql("SELECT ID FROM products_localized WHERE lang='ge'"
                                            " AND name LIKE '%1'")
                                            .arg(QString::fromUtf8(pattern))));
    };
    QVERIFY(!rows("%Müller%").isEmpty());
    QCOMPARE(rows("%M_ller%"), rows("%Müller%"));
    QCOMPARE(rows("%M__ller%"), QStringList());
}

void TestSQLiteWrapper::testCharactersOutsideTheCodePageBecomeQuestionMarks()
{
    QCOMPARE(RowsOf(database.GetTable(Sql("SELECT 'a→b日' as x, 'œ€' as y"))),
             QStringList(Sql("a?b?|œ€")));
}

void TestSQLiteWrapper::testEveryByteComesBack()
{
    QByteArray bytes;
    for (int code = 1; code < 256; ++code)
        bytes.append(static_cast<char>(code));
    const QString file = folder.filePath(QStringLiteral("bytes.db"));
    WriteVersion2(file, {{"CREATE TABLE a (x TEXT, n)", "a", {{bytes, QByteArray(3000, '7')}}}});
    SQLiteWrapper other{QString()};
    QVERIFY(other.Open(file));
    const QString text = other.GetTable(Sql("SELECT x, n FROM a")).Text(1, 0);
    QCOMPARE(text.size(), 255);
    QCOMPARE(text.at(0x41 - 1), QChar(u'A'));
    QCOMPARE(text.at(0x80 - 1), QChar(u'€'));
    QCOMPARE(text.at(0x81 - 1), QChar(0x81)); // left open by the code page
    QCOMPARE(text.at(0x9c - 1), QChar(u'œ'));
    QCOMPARE(text.at(0xff - 1), QChar(u'ÿ'));
    QCOMPARE(other.GetTable(Sql("SELECT x, n FROM a")).Text(1, 1).size(), 3000);
}

void TestSQLiteWrapper::testTextOrderIsThatOfTheCodePage()
{
    const QString file = folder.filePath(QStringLiteral("order.db"));
    WriteVersion2(file,
                  {{"CREATE TABLE a (t TEXT, n)",
                    "a",
                    {{"\xe9uf", "\xe9uf"}, {"\x9cuf", "\x9cuf"}, {"zuf", "zuf"}, {"Zuf", "Zuf"}}}});
    SQLiteWrapper other{QString()};
    QVERIFY(other.Open(file));
    const QStringList expected{Sql("Zuf"), Sql("zuf"), Sql("œuf"), Sql("éuf")};
    QCOMPARE(RowsOf(other.GetTable(Sql("SELECT t FROM a ORDER BY t"))), expected);
    QCOMPARE(RowsOf(other.GetTable(Sql("SELECT n FROM a ORDER BY n"))), expected);
}

void TestSQLiteWrapper::testClosedDatabaseGivesNoRows()
{
    SQLiteWrapper other{QString()};
    QVERIFY(!other.IsOpen());
    QVERIFY(other.Open(SampleFile(QStringLiteral("catalog.db"))));
    QVERIFY(other.IsOpen());
    other.Close();
    QVERIFY(!other.IsOpen());
    QString error;
    QCOMPARE(other.GetTable(Sql("SELECT 1"), &error).UpperRow(), -1);
    QVERIFY(!error.isEmpty());
}

void TestSQLiteWrapper::testReopenReplacesTheDatabase()
{
    SQLiteWrapper other{QString()};
    QVERIFY(other.Open(SampleFile(QStringLiteral("catalog.db"))));
    QVERIFY(other.Open(SampleFile(QStringLiteral("typing.db"))));
    QCOMPARE(RowsOf(other.GetTable(Sql("SELECT count(*) as res FROM a"))),
             QStringList(QStringLiteral("11")));
    QCOMPARE(other.GetTable(Sql("SELECT * FROM categories")).UpperRow(), -1);
}

void TestSQLiteWrapper::testFailedOpenLeavesNothingOpen()
{
    SQLiteWrapper other{QString()};
    QVERIFY(other.Open(SampleFile(QStringLiteral("catalog.db"))));
    QVERIFY(!other.Open(folder.filePath(QStringLiteral("missing.db"))));
    QVERIFY(!other.IsOpen());
}

void TestSQLiteWrapper::testBegunOpenNeedsNothingMoreOfTheFile()
{
    const QString file = folder.filePath(QStringLiteral("begun.db"));
    QVERIFY(QFile::copy(SampleFile(QStringLiteral("catalog.db")), file));
    const QString cache = folder.filePath(QStringLiteral("begun"));
    SQLiteWrapper other(cache);
    other.BeginOpen(file);
    QTRY_VERIFY(!QDir(cache).entryList({QStringLiteral("*.db")}, QDir::Files).isEmpty());
    QVERIFY(QFile::remove(file));
    QVERIFY(other.Open(file));
    QCOMPARE(RowsOf(other.GetTable(Sql(ProductOne))), RowsOf(database.GetTable(Sql(ProductOne))));
    QVERIFY(!other.Open(file));
}

void TestSQLiteWrapper::testBegunOpenOfAnotherFileIsLeft()
{
    SQLiteWrapper other{QString()};
    other.BeginOpen(SampleFile(QStringLiteral("typing.db")));
    QVERIFY(other.Open(SampleFile(QStringLiteral("catalog.db"))));
    QCOMPARE(RowsOf(other.GetTable(Sql(ProductOne))), RowsOf(database.GetTable(Sql(ProductOne))));
}

void TestSQLiteWrapper::testBegunOpenTellsItsFailure()
{
    const QString missing = folder.filePath(QStringLiteral("missing.db"));
    SQLiteWrapper other{QString()};
    other.BeginOpen(missing);
    QString error;
    QVERIFY(!other.Open(missing, &error));
    QVERIFY2(error.contains(QLatin1String("missing.db")), qPrintable(error));
    QVERIFY(!other.IsOpen());
}

void TestSQLiteWrapper::testVersion3FileOpens()
{
    const QString file = folder.filePath(QStringLiteral("three.db"));
    WriteVersion3(file,
                  "CREATE TABLE products_global (ID INTEGER PRIMARY KEY, artNr TEXT, isSet TEXT,"
                  " length REAL, sCm TEXT);"
                  "INSERT INTO products_global VALUES (1, 'AB 1', 'False', 145, NULL);"
                  "INSERT INTO products_global VALUES (2, 'AB 0', 'True', 130.5, '13 cm');"
                  "CREATE TABLE products_localized (ID INTEGER, lang TEXT, name TEXT, form TEXT);"
                  "INSERT INTO products_localized VALUES (1, 'ge', 'Schere', '');"
                  "INSERT INTO products_localized VALUES (2, 'ge', 'Pinzette', NULL)");
    SQLiteWrapper other(folder.filePath(QStringLiteral("cache")));
    QVERIFY(other.Open(file));
    const ResultTable table = other.GetTable(Sql(
        "SELECT p.*, l.name FROM products_global p INNER JOIN products_localized l"
        " ON (p.ID=l.ID AND l.lang='ge')  WHERE (p.length between 130 AND 160) order by p.artNr"));
    QCOMPARE(NamesOf(table), (QStringList{Sql("p.ID"), Sql("p.artNr"), Sql("p.isSet"),
                                          Sql("p.length"), Sql("p.sCm"), Sql("l.name")}));
    QCOMPARE(RowsOf(table), (QStringList{Sql("2|AB 0|True|130.5|13 cm|Pinzette"),
                                         Sql("1|AB 1|False|145.0|NULL|Schere")}));
    QVERIFY(!QDir(folder.filePath(QStringLiteral("cache"))).exists());
}

void TestSQLiteWrapper::testVersion3FileKeepsItsCharacters()
{
    const QString file = folder.filePath(QStringLiteral("characters.db"));
    WriteVersion3(file, "CREATE TABLE a (x TEXT); INSERT INTO a VALUES ('日本→')");
    SQLiteWrapper other{QString()};
    QVERIFY(other.Open(file));
    QCOMPARE(RowsOf(other.GetTable(Sql("SELECT x FROM a WHERE x = '日本→'"))),
             QStringList(Sql("日本→")));
}

void TestSQLiteWrapper::testVersion3FileInWriteAheadModeLeavesNoFiles()
{
    QDir own(folder.filePath(QStringLiteral("wal")));
    QVERIFY(own.mkpath(QStringLiteral(".")));
    const QString file = own.filePath(QStringLiteral("catalog.db"));
    WriteVersion3(file, "PRAGMA journal_mode = WAL; CREATE TABLE a (x); INSERT INTO a VALUES (1)");
    QCOMPARE(own.entryList(QDir::Files), QStringList(QStringLiteral("catalog.db")));
    SQLiteWrapper other{QString()};
    QVERIFY(other.Open(file));
    QCOMPARE(RowsOf(other.GetTable(Sql("SELECT x FROM a"))), QStringList(QStringLiteral("1")));
    QCOMPARE(own.entryList(QDir::Files), QStringList(QStringLiteral("catalog.db")));
}

void TestSQLiteWrapper::testVersion3TableWithoutRowIds()
{
    const QString file = folder.filePath(QStringLiteral("norowid.db"));
    WriteVersion3(
        file,
        "CREATE TABLE a (x TEXT PRIMARY KEY) WITHOUT ROWID; INSERT INTO a VALUES ('b'), ('a')");
    SQLiteWrapper other{QString()};
    QVERIFY(other.Open(file));
    QString error;
    QCOMPARE(RowsOf(other.GetTable(Sql("SELECT x FROM a"), &error)),
             (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(error, QString());
}

void TestSQLiteWrapper::testVersion3FileCannotBeWritten()
{
    const QString file = folder.filePath(QStringLiteral("readonly.db"));
    WriteVersion3(file, "CREATE TABLE a (x); INSERT INTO a VALUES (1)");
    const QByteArray before = BytesOf(file);
    SQLiteWrapper other{QString()};
    QVERIFY(other.Open(file));
    QString error;
    other.GetTable(Sql("DELETE FROM a"), &error);
    QVERIFY(!error.isEmpty());
    QCOMPARE(RowsOf(other.GetTable(Sql("SELECT x FROM a"))), QStringList(QStringLiteral("1")));
    QCOMPARE(BytesOf(file), before);
}

QTEST_APPLESS_MAIN(TestSQLiteWrapper)
#include "TestSQLiteWrapper.moc"
