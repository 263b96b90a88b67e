#include "Scratch.h"
#include "StructureChecker.h"

#include "sqlite2/Database.h"
#include "sqlite2/Error.h"
#include "sqlite2/Reader.h"

#include <QTest>
#include <QtEndian>

using namespace Sqlite2;

namespace {

constexpr qsizetype PageSize = 1024;

/// Reads everything and gives what Error said; nothing when all could be read.
std::string ReadDamaged(const QByteArray &bytes)
{
    try {
        const Database database(bytes.toStdString());
        for (const Table &table : database.Tables()) {
            TableRows rows = database.Rows(table);
            while (rows.Next()) {
            }
        }
    } catch (const Error &error) {
        return error.what();
    }
    return {};
}

/// Two tables, the first with rows enough for an inner page.
QByteArray TwoTables()
{
    return MakeDatabase(ByteOrder::Little, [](Writer &writer) {
        writer.CreateTable("CREATE TABLE t(a)");
        writer.CreateTable("CREATE TABLE u(a)");
        for (int i = 0; i < 12; ++i) {
            writer.InsertRow("t", {std::string(200, 't')});
            writer.InsertRow("u", {std::string(200, 'u')});
        }
    });
}

} // namespace

class DamageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testHostilePages_data();
    void testHostilePages();
    void testForeignFiles_data();
    void testForeignFiles();
    void testHostileSchema_data();
    void testHostileSchema();
    void testErrorNamesFileAndTable();
    void testNewerFileFormatIsAnError();
    void testManyTablesOverOneTreeAreAnError();
    void testTreeThatIsAChainIsAnError();
};

void DamageTest::testHostilePages_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QByteArray>("bytes");
    // In the little-endian file below, page 3 is the table's inner root, 6 and 7 are its leaves,
    // 4 and 5 the overflow chain of the last row.
    const QByteArray all("\xff\xff\xff\xff", 4);
    const auto number = [](quint32 value) {
        QByteArray bytes(4, '\0');
        qToLittleEndian(value, bytes.data());
        return bytes;
    };
    QTest::newRow("right child is the page itself") << 3 << 0 << number(3);
    QTest::newRow("right child is the left one") << 3 << 0 << number(6);
    QTest::newRow("right child is the header page") << 3 << 0 << number(1);
    QTest::newRow("right child is the schema") << 3 << 0 << number(2);
    QTest::newRow("right child leaves the file") << 3 << 0 << number(9);
    QTest::newRow("right child is far out") << 3 << 0 << all;
    QTest::newRow("leaf's right child is its parent") << 7 << 0 << number(3);
    QTest::newRow("left child is the page itself") << 3 << 8 << number(3);
    QTest::newRow("left child leaves the file") << 3 << 8 << all;
    QTest::newRow("first cell lies in the header") << 6 << 4 << QByteArray("\x04\0", 2);
    QTest::newRow("first cell is not aligned") << 6 << 4 << QByteArray("\x0a\0", 2);
    QTest::newRow("first cell reaches out of the page") << 6 << 4 << QByteArray("\xf8\x03", 2);
    QTest::newRow("first cell is out of the page") << 6 << 4 << QByteArray("\xff\xff", 2);
    QTest::newRow("next cell is the cell itself") << 6 << 8 + 6 << QByteArray("\x08\0", 2);
    QTest::newRow("next cell is out of the page") << 6 << 8 + 6 << QByteArray("\xff\xff", 2);
    QTest::newRow("key of another size") << 6 << 8 + 4 << QByteArray("\x05\0", 2);
    QTest::newRow("key of 16 MB") << 6 << 8 + 8 << QByteArray("\xff", 1);
    QTest::newRow("data of 16 MB") << 6 << 8 + 9 << QByteArray("\xff", 1);
    QTest::newRow("data of no size") << 6 << 8 + 10 << QByteArray("\0\0", 2);
    QTest::newRow("keys out of order") << 6 << 8 + 12 << QByteArray("\xff\xff\xff\xff", 4);
    QTest::newRow("first value begins elsewhere") << 6 << 8 + 16 << QByteArray("\x01", 1);
    QTest::newRow("value ends before it begins") << 6 << 8 + 17 << QByteArray("\x01", 1);
    QTest::newRow("value ends behind the record") << 6 << 8 + 17 << QByteArray("\xff", 1);
    QTest::newRow("right leaf is hidden") << 3 << 0 << number(0);
    QTest::newRow("left leaf is hidden") << 3 << 8 << number(0);
    QTest::newRow("all rows are hidden") << 6 << 4 << QByteArray("\0\0", 2);
    QTest::newRow("last rows are hidden") << 6 << 8 + 6 << QByteArray("\0\0", 2);
    QTest::newRow("free block over a row") << 6 << 6 << QByteArray("\x08\0", 2);
    QTest::newRow("free block out of the page") << 6 << 6 << QByteArray("\xfc\xff", 2);
    QTest::newRow("free page in use") << 1 << 52 << number(7) + number(1);
    QTest::newRow("free page that is none") << 1 << 52 << number(9) + number(1);
    QTest::newRow("free pages lost") << 1 << 56 << number(1);
    QTest::newRow("overflow chain is a loop") << 4 << 0 << number(4);
    QTest::newRow("overflow chain runs into the tree") << 4 << 0 << number(6);
    QTest::newRow("overflow chain leaves the file") << 4 << 0 << all;
    QTest::newRow("overflow chain ends too early") << 4 << 0 << number(0);
    QTest::newRow("overflow chain goes on") << 5 << 0 << number(2);
}

void DamageTest::testHostilePages()
{
    QFETCH(int, page);
    QFETCH(int, offset);
    QFETCH(QByteArray, bytes);
    QByteArray database = MakeDatabase(ByteOrder::Little, [](Writer &writer) {
        writer.CreateTable("CREATE TABLE t(a)");
        for (int i = 0; i < 6; ++i)
            writer.InsertRow("t", {std::string(180, 'r')});
        writer.InsertRow("t", {std::string(1500, 'o')});
    });
    // The map of pages that the cases rely on.
    QCOMPARE(database.size(), 7 * PageSize);
    QVERIFY(database.mid(5 * PageSize + 26).startsWith("rrr"));
    QVERIFY(database.mid(3 * PageSize + 4).startsWith("ooo"));
    QCOMPARE(ReadDamaged(database), std::string());

    database.replace((page - 1) * PageSize + offset, bytes.size(), bytes);
    QVERIFY(!ReadDamaged(database).empty());
}

void DamageTest::testForeignFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray header("** This file contains an SQLite 2.1 database **\0", 48);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("id;name\r\n1;x\r\n");
    QTest::newRow("version 3") << QByteArray("SQLite format 3\0", 16) + QByteArray(4080, '\0');
    QTest::newRow("header only") << header;
    QTest::newRow("no byte-order mark") << header + QByteArray(2 * PageSize - 48, '\0');
    QTest::newRow("no second page")
        << header + QByteArray("\x28\x75\xe3\xda", 4) + QByteArray(PageSize - 52, '\0');
    QTest::newRow("zeros") << QByteArray(4 * PageSize, '\0');
    QTest::newRow("ones") << QByteArray(4 * PageSize, '\xff');
}

void DamageTest::testForeignFiles()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!ReadDamaged(bytes).empty());
}

void DamageTest::testHostileSchema_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    // Each keeps the length, so that the record around it stays sound.
    QTest::newRow("statement") << QByteArray("CREATE TABLE t(a") << QByteArray("CREATE TABLE t(,");
    QTest::newRow("index statement") << QByteArray("ON t(b)") << QByteArray("ON t(()");
    QTest::newRow("type") << QByteArray("table\0t\0", 8) << QByteArray("tabla\0t\0", 8);
    QTest::newRow("root page 0") << QByteArray("\0"
                                               "3\0CREATE",
                                               9)
                                 << QByteArray("\0"
                                               "0\0CREATE",
                                               9);
    QTest::newRow("root page 1") << QByteArray("\0"
                                               "3\0CREATE",
                                               9)
                                 << QByteArray("\0"
                                               "1\0CREATE",
                                               9);
    QTest::newRow("root page is the schema") << QByteArray("\0"
                                                           "3\0CREATE",
                                                           9)
                                             << QByteArray("\0"
                                                           "2\0CREATE",
                                                           9);
    QTest::newRow("root page leaves the file") << QByteArray("\0"
                                                             "3\0CREATE",
                                                             9)
                                               << QByteArray("\0"
                                                             "9\0CREATE",
                                                             9);
    QTest::newRow("root page is no number") << QByteArray("\0"
                                                          "3\0CREATE",
                                                          9)
                                            << QByteArray("\0"
                                                          "x\0CREATE",
                                                          9);
    QTest::newRow("root page is the other table's") << QByteArray("\0"
                                                                  "5\0CREATE",
                                                                  9)
                                                    << QByteArray("\0"
                                                                  "3\0CREATE",
                                                                  9);
    QTest::newRow("name is another's") << QByteArray("\0u\0u\0", 5) << QByteArray("\0T\0T\0", 5);
    QTest::newRow("index of no table") << QByteArray("\0i\0t\0", 5) << QByteArray("\0i\0x\0", 5);
}

void DamageTest::testHostileSchema()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QByteArray database = MakeDatabase(ByteOrder::Little, [](Writer &writer) {
        writer.CreateTable("CREATE TABLE t(a, b)");
        writer.CreateIndex("CREATE INDEX i ON t(b)");
        writer.CreateTable("CREATE TABLE u(a)");
    });
    QCOMPARE(ReadDamaged(database), std::string());

    const qsizetype at = database.indexOf(from);
    QVERIFY(at > 0);
    QCOMPARE(from.size(), to.size());
    database.replace(at, to.size(), to);
    QVERIFY(!ReadDamaged(database).empty());
}

void DamageTest::testErrorNamesFileAndTable()
{
    QByteArray database = TwoTables();
    const quint32 root = StructureChecker(database).RootPages().value("t");
    database.replace((root - 1) * PageSize, 4, "\xff\xff\xff\xff", 4);
    const Scratch scratch;
    scratch.Write(database);
    try {
        const Reader reader(scratch.File());
        QFAIL("the damage went unnoticed");
    } catch (const Error &error) {
        const std::string message = error.what();
        QVERIFY(message.find(scratch.File().string()) != std::string::npos);
        QVERIFY(message.find("\"t\"") != std::string::npos);
        QVERIFY(message.find("4294967295") != std::string::npos);
    }
}

void DamageTest::testNewerFileFormatIsAnError()
{
    QByteArray database = TwoTables();
    QCOMPARE(ReadDamaged(database), std::string());
    database[64] = 5;
    QVERIFY(!ReadDamaged(database).empty());
}

/// Trees that share pages would multiply the work: no page is read for two tables.
void DamageTest::testManyTablesOverOneTreeAreAnError()
{
    QByteArray database = TwoTables();
    const QMap<QByteArray, quint32> roots = StructureChecker(database).RootPages();
    const QByteArray rightChildOfFirst = database.mid((roots.value("t") - 1) * PageSize, 4);
    QVERIFY(rightChildOfFirst != QByteArray(4, '\0'));
    database.replace((roots.value("u") - 1) * PageSize, 4, rightChildOfFirst);
    QVERIFY(ReadDamaged(database).find("two links lead to page") != std::string::npos);
}

/// A page below a page without end must not exhaust the stack.
void DamageTest::testTreeThatIsAChainIsAnError()
{
    constexpr int length = 40;
    QByteArray database = MakeDatabase(
        ByteOrder::Little, [](Writer &writer) { writer.CreateTable("CREATE TABLE t(a)"); });
    QCOMPARE(database.size(), 3 * PageSize);
    database.resize((3 + length) * PageSize);
    for (quint32 page = 3; page < 3 + length; ++page) {
        uchar *const bytes = reinterpret_cast<uchar *>(database.data()) + (page - 1) * PageSize;
        std::fill_n(bytes, PageSize, uchar{0});
        // The next page is the right child, and a cell of 20 bytes the only one.
        qToLittleEndian<quint32>(page + 1, bytes);
        qToLittleEndian<quint16>(8, bytes + 4);
        qToLittleEndian<quint16>(28, bytes + 6);
        qToLittleEndian<quint32>(page + 1, bytes + 8);
        qToLittleEndian<quint16>(4, bytes + 8 + 4);
        qToLittleEndian<quint16>(PageSize - 28, bytes + 28);
    }
    QVERIFY(ReadDamaged(database).find("deeper than a tree can be") != std::string::npos);
}

QTEST_GUILESS_MAIN(DamageTest)
#include "DamageTest.moc"
