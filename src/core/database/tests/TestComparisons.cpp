#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;
using namespace Tesk::Database;

/// The rules of comparison on the sample's values, worked out by hand. By key the columns n, t, u
/// and v (numeric, text, numeric, text) hold
///
///   1 007, 2 7, 3 10, 4 9, 5 abc, 6 NULL, 7 the empty text, 8 " 7 ", 9 7abc, 10 -3
///
/// and in row 11 0x10, ABC, Abc and ABC.
class TestComparisons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testKeysOf_data();
    void testKeysOf();
    void testLargeNumbersCompareByAllTheirDigits();
};

void TestComparisons::testKeysOf_data()
{
    QTest::addColumn<QString>("keys");
    const auto add = [](const char *condition, const char *keys) {
        QTest::newRow(condition) << QString::fromLatin1(keys);
    };
    // Text with a number: by value.
    add("t=7", "1 2");
    add("7=t", "1 2");
    add("t=7.0", "1 2");
    add("t<>7", "3 4 5 7 8 9 10 11");
    add("t<8", "1 2 10");
    add("t>9", "3 5 7 8 9 11");
    add("v>=9 and v<=10", "3 4");
    add("t between 7 and 10", "1 2 3 4");
    add("t not between 7 and 10", "5 7 8 9 10 11");
    add("t=-3", "10");
    add("not t=7", "3 4 5 7 8 9 10 11");
    // Text with text: byte by byte.
    add("t='7'", "2");
    add("t<'1'", "1 7 8 10");
    add("t between '7' and '9'", "2 4 9");
    add("t=v", "1 2 3 4 5 7 8 9 10 11");
    // Numeric with anything: by value.
    add("n='7'", "1 2");
    add("n='7.0'", "1 2");
    add("n=' 7 '", "8");
    add("n>9", "3 5 7 8 9 11");
    add("u<'8'", "1 2 10");
    // Numeric with text: by value, on either side.
    add("t=n", "1 2 3 4 5 7 8 9 10");
    add("n=t", "1 2 3 4 5 7 8 9 10");
    add("t=7 or n='abc'", "1 2 5");
    add("k=007", "7");
    add("k='7.0'", "7");
    // A row id with anything: by value too.
    add("k=7.0", "7");
    add("k=70e-1", "7");
    add("k=+7", "7");
    add("k=7.5", "");
    add("k=t", "");
    add("not k=t", "1 2 3 4 5 7 8 9 10 11");
    add("not k=7", "1 2 3 4 5 6 8 9 10 11");
    // Every text of any column matches by its characters.
    add("n like '%7%'", "1 2 8 9");
    add("t like '_bc'", "5 11");
}

void TestComparisons::testKeysOf()
{
    QFETCH(QString, keys);
    SQLiteWrapper database{QString()};
    QVERIFY(database.Open(SampleFile(QStringLiteral("typing.db"))));
    QString error;
    const ResultTable table = database.GetTable(QStringLiteral("select k from a where ") +
                                                    QString::fromLatin1(QTest::currentDataTag()),
                                                &error);
    QCOMPARE(error, QString());
    QCOMPARE(ColumnOf(table).join(QLatin1Char(' ')), keys);
}

void TestComparisons::testLargeNumbersCompareByAllTheirDigits()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("catalog.db"));
    WriteVersion2(file,
                  {{"CREATE TABLE a (n)", "a", {{"9007199254740991"}, {"9007199254740990"}}}});
    SQLiteWrapper database{QString()};
    QVERIFY(database.Open(file));
    QCOMPARE(
        ColumnOf(database.GetTable(QStringLiteral("select n from a where n=9007199254740991"))),
        QStringList(QStringLiteral("9007199254740991")));
}

QTEST_APPLESS_MAIN(TestComparisons)
#include "TestComparisons.moc"
