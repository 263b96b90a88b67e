#include "Samples.h"
#include "Scratch.h"
#include "StructureChecker.h"

#include "sqlite2/Error.h"
#include "sqlite2/Reader.h"
#include "sqlite2/Writer.h"

#include <QFile>
#include <QTest>

#include <limits>
#include <random>

using namespace Sqlite2;
using namespace Sqlite2::Samples;

namespace {

using Rows = std::map<std::int32_t, Row>;

constexpr std::array ByteOrders{ByteOrder::Little, ByteOrder::Big};

QByteArray SampleBytes(const std::string &name)
{
    QFile file(QString::fromStdString(File(name).string()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : throw std::runtime_error("no " + name);
}

void Insert(Writer &writer, const std::string &table, const std::vector<Row> &rows)
{
    for (const Row &row : rows)
        writer.InsertRow(table, row);
}

} // namespace

class WriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testSamplesAreSound_data();
    void testSamplesAreSound();
    void testCheckerFindsDamage_data();
    void testCheckerFindsDamage();
    void testSampleWrittenAnewIsTheSameByteForByte_data();
    void testSampleWrittenAnewIsTheSameByteForByte();

    void testEmptyDatabase();
    void testEmptyTable();
    void testEverySizeAroundTheLimits_data();
    void testEverySizeAroundTheLimits();
    void testTreesOfEverySize();
    void testRandomRowsComeBack_data();
    void testRandomRowsComeBack();
    void testLongIndexKeys();
    void testLongSchema();

    void testRowIdsAreCountedOnFromTheLargest();
    void testNoRowIdIsLeft();
    void testExtremeRowIds();
    void testConstraintsImplyIndexes();
    void testNullsAreNotEqual();
    void testStatementIsStoredWithoutItsSemicolon();

    void testRefusesWhatCannotBeStored();
    void testRefusesEqualRowsInAUniqueIndex();
    void testRefusesTakenNames();
    void testRefusesToWriteBesideAJournal();
    void testFailureLeavesTheOldFile();
};

void WriterTest::testSamplesAreSound_data()
{
    QTest::addColumn<QString>("database");
    for (const char *name : {"catalog.db", "catalog-untyped.db", "catalog-alltext.db",
                             "catalog-bigendian.db", "shapes.db", "typing.db"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void WriterTest::testSamplesAreSound()
{
    QFETCH(QString, database);
    QCOMPARE(StructureChecker(SampleBytes(database.toStdString())).Run(), QStringList());
}

void WriterTest::testCheckerFindsDamage_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QByteArray>("bytes");
    // Page 3 begins at 2048; its first cell lies at 2056 and has its next cell's offset at 2062.
    QTest::newRow("header text") << 3 << QByteArray("x");
    QTest::newRow("free page count") << 56 << QByteArray("\x01", 1);
    QTest::newRow("right child") << 2048 << QByteArray("\x02\0\0\0", 4);
    QTest::newRow("first cell") << 2052 << QByteArray("\0\0", 2);
    QTest::newRow("free block") << 2054 << QByteArray("\0\0", 2);
    QTest::newRow("left child") << 2056 << QByteArray("\x03\0\0\0", 4);
    QTest::newRow("key") << 2068 << QByteArray("\xff", 1);
    QTest::newRow("next cell") << 2062 << QByteArray("\0\0", 2);
    QTest::newRow("data size") << 2066 << QByteArray("\x40", 1);
}

void WriterTest::testCheckerFindsDamage()
{
    QFETCH(int, offset);
    QFETCH(QByteArray, bytes);
    QByteArray database = MakeDatabase(ByteOrder::Little, [](Writer &writer) {
        writer.CreateTable("CREATE TABLE t(a)");
        Insert(writer, "t", {{"one"}, {"two"}, {"three"}});
    });
    QCOMPARE(StructureChecker(database).Run(), QStringList());
    database.replace(offset, bytes.size(), bytes);
    QVERIFY(!StructureChecker(database).Run().isEmpty());
}

void WriterTest::testSampleWrittenAnewIsTheSameByteForByte_data()
{
    testSamplesAreSound_data();
}

/// Not the pages, whose layout is free, but every key and record of every table and index.
void WriterTest::testSampleWrittenAnewIsTheSameByteForByte()
{
    QFETCH(QString, database);
    const std::string name = database.toStdString();
    const StructureChecker sample(SampleBytes(name));
    const Reader reader(File(name));
    const auto order = name == "catalog-bigendian.db" ? ByteOrder::Big : ByteOrder::Little;

    const QByteArray written = MakeDatabase(order, [&](Writer &writer) {
        for (const QList<QByteArray> &entry : sample.Schema()) {
            if (entry[0] == "table")
                writer.CreateTable(entry[4].toStdString());
            else if (entry[0] == "index" && !entry[4].isEmpty())
                writer.CreateIndex(entry[4].toStdString());
        }
        for (const Table &table : reader.Tables())
            reader.ReadRows(
                table, [&](std::int32_t, const Row &row) { writer.InsertRow(table.name, row); });
    });

    const StructureChecker copy(written);
    QCOMPARE(StructureChecker(written).Run(), QStringList());
    QCOMPARE(written.mid(48, 4), SampleBytes(name).mid(48, 4));
    int treesCompared = 0;
    for (const auto &[tree, root] : sample.RootPages().asKeyValueRange()) {
        if (root == 0)
            continue;
        ++treesCompared;
        const quint32 copyRoot = copy.RootPages().value(tree);
        QCOMPARE(copy.Keys(copyRoot), sample.Keys(root));
        QCOMPARE(copy.Records(copyRoot), sample.Records(root));
    }
    QVERIFY(treesCompared > 0);
}

void WriterTest::testEmptyDatabase()
{
    for (const ByteOrder order : ByteOrders) {
        const Scratch scratch;
        Writer(order).Finish(scratch.File());
        QCOMPARE(scratch.Bytes().size(), 2 * 1024);
        QCOMPARE(StructureChecker(scratch.Bytes()).Run(), QStringList());
        QVERIFY(Reader(scratch.File()).Tables().empty());
    }
}

void WriterTest::testEmptyTable()
{
    const Scratch scratch;
    Writer writer;
    writer.CreateTable("CREATE TABLE t(a)");
    writer.CreateIndex("CREATE INDEX i ON t(a)");
    writer.Finish(scratch.File());
    QCOMPARE(StructureChecker(scratch.Bytes()).Run(), QStringList());
    QVERIFY(RowsOf(scratch.File(), "t").empty());
}

void WriterTest::testEverySizeAroundTheLimits_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    // A cell's own 236 bytes; 1-byte offsets up to 255; one and two overflow pages; 2-byte offsets
    // up to 65,535.
    QTest::newRow("from nothing") << 0 << 20;
    QTest::newRow("cell and 1-byte offsets") << 215 << 265;
    QTest::newRow("one overflow page") << 1005 << 1030;
    QTest::newRow("one more") << 1235 << 1265;
    QTest::newRow("two overflow pages") << 2255 << 2285;
    QTest::newRow("2-byte offsets") << 65520 << 65545;
    QTest::newRow("large") << 1000000 << 1000001;
}

void WriterTest::testEverySizeAroundTheLimits()
{
    QFETCH(int, first);
    QFETCH(int, last);
    for (const ByteOrder order : ByteOrders) {
        const Scratch scratch;
        Writer writer(order);
        writer.CreateTable("CREATE TABLE one(a)");
        writer.CreateTable("CREATE TABLE three(id INTEGER PRIMARY KEY, a, b, c)");
        Rows one;
        Rows three;
        for (int size = first; size <= last; ++size) {
            const std::string text(static_cast<std::size_t>(size),
                                   static_cast<char>('a' + size % 26));
            one[size - first + 1] = {text};
            three[size] = {std::to_string(size), text, {}, "end"};
            writer.InsertRow("one", {text});
            writer.InsertRow("three", three[size]);
        }
        writer.Finish(scratch.File());
        QVERIFY(RowsOf(scratch.File(), "one") == one);
        QVERIFY(RowsOf(scratch.File(), "three") == three);
        QCOMPARE(StructureChecker(scratch.Bytes()).Run(), QStringList());
    }
}

/// Page boundaries fall differently for every number of rows: each must give a sound tree.
void WriterTest::testTreesOfEverySize()
{
    for (int count = 0; count < 400; ++count) {
        const QByteArray database = MakeDatabase(ByteOrder::Little, [&](Writer &writer) {
            writer.CreateTable("CREATE TABLE t(a, b)");
            for (int i = 0; i < count; ++i)
                writer.InsertRow("t", {std::string(200, 'x'), {}});
        });
        QCOMPARE(StructureChecker(database).Run(), QStringList());
    }
    const QByteArray deep = MakeDatabase(ByteOrder::Big, [&](Writer &writer) {
        writer.CreateTable("CREATE TABLE t(a)");
        for (int i = 0; i < 30000; ++i)
            writer.InsertRow("t", {std::to_string(i)});
    });
    QCOMPARE(StructureChecker(deep).Run(), QStringList());
}

void WriterTest::testRandomRowsComeBack_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 12; ++seed)
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
}

void WriterTest::testRandomRowsComeBack()
{
    QFETCH(unsigned, seed);
    std::mt19937 random(seed);
    const auto below = [&](int bound) {
        return std::uniform_int_distribution<int>(0, bound - 1)(random);
    };
    const auto value = [&]() -> Value {
        switch (below(6)) {
        case 0:
            return {};
        case 1:
            return "";
        case 2:
            return std::to_string(below(2000) - 1000);
        default:
            break;
        }
        constexpr std::array longest{4, 30, 240, 260, 3000};
        std::string text(
            static_cast<std::size_t>(below(longest[static_cast<std::size_t>(below(5))])), ' ');
        for (char &c : text)
            c = static_cast<char>(1 + below(255));
        return text;
    };

    const int columns = 1 + below(6);
    std::string declaration = "CREATE TABLE t(id INTEGER PRIMARY KEY";
    for (int i = 0; i < columns; ++i)
        declaration += ", c" + std::to_string(i) + (below(2) == 0 ? " TEXT" : "");
    Rows rows;
    for (int count = below(600); count > 0; --count) {
        const auto rowId = std::uniform_int_distribution<std::int32_t>(
            std::numeric_limits<std::int32_t>::min(),
            std::numeric_limits<std::int32_t>::max())(random);
        Row row{std::to_string(rowId)};
        for (int i = 0; i < columns; ++i)
            row.push_back(value());
        rows[rowId] = row;
    }
    std::vector<Row> shuffled;
    for (const auto &[rowId, row] : rows)
        shuffled.push_back(row);
    std::ranges::shuffle(shuffled, random);

    for (const ByteOrder order : ByteOrders) {
        const Scratch scratch;
        Writer writer(order);
        writer.CreateTable(declaration + ')');
        writer.CreateIndex("CREATE INDEX first ON t(c0, id)");
        writer.CreateIndex("CREATE INDEX second ON t(id)");
        Insert(writer, "t", shuffled);
        writer.Finish(scratch.File());
        QVERIFY(RowsOf(scratch.File(), "t") == rows);
        QCOMPARE(StructureChecker(scratch.Bytes()).Run(), QStringList());
    }
}

void WriterTest::testLongIndexKeys()
{
    for (const ByteOrder order : ByteOrders) {
        const QByteArray database = MakeDatabase(order, [](Writer &writer) {
            writer.CreateTable("CREATE TABLE t(a TEXT)");
            writer.CreateIndex("CREATE INDEX i ON t(a)");
            for (std::size_t size = 220; size < 245; ++size)
                writer.InsertRow("t", {std::string(size, 'k')});
            writer.InsertRow("t", {std::string(70000, 'k')});
        });
        QCOMPARE(StructureChecker(database).Run(), QStringList());
    }
}

void WriterTest::testLongSchema()
{
    const Scratch scratch;
    Writer writer;
    for (int i = 0; i < 60; ++i) {
        std::string sql = "CREATE TABLE table" + std::to_string(i) + "(first INTEGER PRIMARY KEY";
        for (int column = 0; column < i * 3; ++column)
            sql += ", a_column_with_a_long_name_" + std::to_string(column) + " VARCHAR(100)";
        writer.CreateTable(sql + ')');
    }
    writer.Finish(scratch.File());
    QCOMPARE(StructureChecker(scratch.Bytes()).Run(), QStringList());
    const Reader reader(scratch.File());
    QCOMPARE(reader.Tables().size(), std::size_t{60});
    QCOMPARE(reader.Tables().back().columns.size(), std::size_t{1 + 59 * 3});
}

void WriterTest::testRowIdsAreCountedOnFromTheLargest()
{
    const Scratch scratch;
    Writer writer;
    writer.CreateTable("CREATE TABLE t(id INTEGER PRIMARY KEY, a)");
    writer.CreateTable("CREATE TABLE u(a)");
    Insert(writer, "T", {{{}, "first"}, {"10", "tenth"}, {"-3", "below"}, {{}, "last"}});
    Insert(writer, "u", {{"x"}, {"y"}});
    writer.Finish(scratch.File());
    QVERIFY((RowsOf(scratch.File(), "t") == Rows{{-3, {"-3", "below"}},
                                                 {1, {"1", "first"}},
                                                 {10, {"10", "tenth"}},
                                                 {11, {"11", "last"}}}));
    QVERIFY((RowsOf(scratch.File(), "u") == Rows{{1, {"x"}}, {2, {"y"}}}));
}

void WriterTest::testNoRowIdIsLeft()
{
    Writer writer;
    writer.CreateTable("CREATE TABLE t(id INTEGER PRIMARY KEY)");
    writer.InsertRow("t", {"2147483647"});
    QVERIFY_THROWS_EXCEPTION(Error, writer.InsertRow("t", {Value()}));
}

void WriterTest::testExtremeRowIds()
{
    const Scratch scratch;
    Writer writer(ByteOrder::Big);
    writer.CreateTable("CREATE TABLE t(id INTEGER PRIMARY KEY)");
    Rows rows;
    for (const char *id : {"-2147483648", "-1", "0", "1", "2147483647"}) {
        writer.InsertRow("t", {id});
        rows[QByteArray(id).toInt()] = {id};
    }
    writer.Finish(scratch.File());
    QCOMPARE(rows.size(), std::size_t{5});
    QVERIFY(RowsOf(scratch.File(), "t") == rows);
}

void WriterTest::testConstraintsImplyIndexes()
{
    const QByteArray database = MakeDatabase(ByteOrder::Little, [](Writer &writer) {
        writer.CreateTable(
            "CREATE TABLE [my t](a TEXT UNIQUE, b INT PRIMARY KEY, c, UNIQUE (b, c))");
        Insert(writer, "my t", {{"x", "2", {}}, {"y", "1", {}}});
    });
    QCOMPARE(StructureChecker(database).Run(), QStringList());
    const StructureChecker checker(database);
    const QMap<QByteArray, quint32> roots = checker.RootPages();
    QCOMPARE(roots.size(), 4);
    QCOMPARE(
        checker.Keys(roots.value("(my t autoindex 1)")),
        QList<QByteArray>({QByteArray("cx\0\x80\0\0\x01", 7), QByteArray("cy\0\x80\0\0\x02", 7)}));
    QCOMPARE(checker.Keys(roots.value("(my t autoindex 2)")),
             QList<QByteArray>(
                 {QByteArray("b0G1X\0\x80\0\0\x02", 10), QByteArray("b0G1Y\0\x80\0\0\x01", 10)}));
    QCOMPARE(checker.Keys(roots.value("(my t autoindex 3)")).size(), 2);
}

void WriterTest::testNullsAreNotEqual()
{
    const QByteArray database = MakeDatabase(ByteOrder::Little, [](Writer &writer) {
        writer.CreateTable("CREATE TABLE t(a, b, UNIQUE (a, b))");
        Insert(writer, "t", {{"1", {}}, {"1", {}}, {{}, {}}, {{}, {}}, {"1", "2"}});
    });
    QCOMPARE(StructureChecker(database).Run(), QStringList());
}

void WriterTest::testStatementIsStoredWithoutItsSemicolon()
{
    const QByteArray database = MakeDatabase(ByteOrder::Little, [](Writer &writer) {
        writer.CreateTable("  -- the table\n CREATE TABLE t(a\n) ; \n");
    });
    const QByteArray record = StructureChecker(database).Records(2).constFirst();
    QVERIFY(record.endsWith(QByteArray("\0CREATE TABLE t(a\n)\0", 20)));
}

void WriterTest::testRefusesWhatCannotBeStored()
{
    Writer writer;
    writer.CreateTable("CREATE TABLE t(id INTEGER PRIMARY KEY, a)");
    writer.InsertRow("t", {"1", "x"});
    QVERIFY_THROWS_EXCEPTION(Error, writer.InsertRow("u", {"1", "x"}));
    QVERIFY_THROWS_EXCEPTION(Error, writer.InsertRow("t", {"2"}));
    QVERIFY_THROWS_EXCEPTION(Error, writer.InsertRow("t", {"2", "x", "y"}));
    QVERIFY_THROWS_EXCEPTION(Error, writer.InsertRow("t", {"1", "x"}));
    for (const char *id : {"", "x", "1.0", " 1", "2147483648", "0x1"})
        QVERIFY_THROWS_EXCEPTION(Error, writer.InsertRow("t", {id, "x"}));
    QVERIFY_THROWS_EXCEPTION(Error, writer.InsertRow("t", {"2", std::string("a\0b", 3)}));
    std::string tooLong;
    tooLong.resize(0x1000000, 'x');
    QVERIFY_THROWS_EXCEPTION(Error, writer.InsertRow("t", {"2", tooLong}));
    QVERIFY_THROWS_EXCEPTION(Error, writer.CreateIndex("CREATE INDEX i ON u(a)"));
    QVERIFY_THROWS_EXCEPTION(Error, writer.CreateIndex("CREATE INDEX i ON t(b)"));
    QVERIFY_THROWS_EXCEPTION(Error, writer.CreateTable("CREATE TABLE w(a UNIQUE, UNIQUE (a))"));

    // What was refused left nothing behind.
    const Scratch scratch;
    writer.Finish(scratch.File());
    QVERIFY((RowsOf(scratch.File(), "t") == Rows{{1, {"1", "x"}}}));
    QCOMPARE(StructureChecker(scratch.Bytes()).Run(), QStringList());
}

void WriterTest::testRefusesEqualRowsInAUniqueIndex()
{
    const Scratch scratch;
    Writer declared;
    declared.CreateTable("CREATE TABLE t(a)");
    declared.CreateIndex("CREATE UNIQUE INDEX i ON t(a)");
    Insert(declared, "t", {{"7"}, {"8"}, {"007"}});
    QVERIFY_THROWS_EXCEPTION(Error, declared.Finish(scratch.File()));

    Writer implied;
    implied.CreateTable("CREATE TABLE t(a TEXT PRIMARY KEY)");
    Insert(implied, "t", {{"7"}, {"007"}, {"7"}});
    QVERIFY_THROWS_EXCEPTION(Error, implied.Finish(scratch.File()));
    QVERIFY(!std::filesystem::exists(scratch.File()));
}

void WriterTest::testRefusesTakenNames()
{
    Writer writer;
    writer.CreateTable("CREATE TABLE t(a)");
    writer.CreateIndex("CREATE INDEX i ON t(a)");
    QVERIFY_THROWS_EXCEPTION(Error, writer.CreateTable("CREATE TABLE T(b)"));
    QVERIFY_THROWS_EXCEPTION(Error, writer.CreateTable("CREATE TABLE i(b)"));
    QVERIFY_THROWS_EXCEPTION(Error, writer.CreateTable("CREATE TABLE sqlite_master(b)"));
    QVERIFY_THROWS_EXCEPTION(Error, writer.CreateIndex("CREATE INDEX I ON t(a)"));
}

void WriterTest::testRefusesToWriteBesideAJournal()
{
    const Scratch scratch;
    scratch.Write("old");
    scratch.Write("journal", "test.db-journal");
    QVERIFY_THROWS_EXCEPTION(Error, Writer().Finish(scratch.File()));
    QCOMPARE(scratch.Bytes(), QByteArray("old"));
}

void WriterTest::testFailureLeavesTheOldFile()
{
    const Scratch scratch;
    // A folder of that name cannot be replaced, nor can a file be made in a folder that is none.
    std::filesystem::create_directories(scratch.File("taken") / "inside");
    QVERIFY_THROWS_EXCEPTION(Error, Writer().Finish(scratch.File("taken")));
    QVERIFY(std::filesystem::is_directory(scratch.File("taken")));
    QVERIFY(!std::filesystem::exists(scratch.File("taken.part")));
    QVERIFY_THROWS_EXCEPTION(Error, Writer().Finish(scratch.File("missing") / "test.db"));
}

QTEST_GUILESS_MAIN(WriterTest)
#include "WriterTest.moc"
