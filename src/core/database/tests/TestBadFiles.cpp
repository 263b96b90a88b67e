#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"
#include "sqlite2/Reader.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;
using namespace Tesk::Database;

namespace {

constexpr qsizetype PageSize = 1024;

/// The position in the file of the root page of the sample's products.
qsizetype RootOfProducts(const QString &file)
{
    const Sqlite2::Reader reader(file.toStdString());
    return (static_cast<qsizetype>(reader.FindTable("products_global")->rootPage) - 1) * PageSize;
}

QByteArray LittleEndian(quint32 number)
{
    QByteArray bytes(4, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(number >> (8 * i));
    return bytes;
}

} // namespace

/// A file that is no catalogue is refused with a reason in the log, whatever is wrong with it.
class TestBadFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testIsRefused_data();
    void testIsRefused();
    void testMissingFileIsRefused();
    void testFolderIsRefused();
    void testCatalogueCutAtAnyPageIsRefusedOrRead();
    void testGoodFileOpensAfterABadOne();

private:
    QTemporaryDir folder;
};

void TestBadFiles::testIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QString sample = SampleFile(QStringLiteral("catalog.db"));
    const QByteArray whole = BytesOf(sample);
    const qsizetype root = RootOfProducts(sample);
    const auto withRightChild = [&](quint32 page) {
        return QByteArray(whole).replace(root, 4, LittleEndian(page));
    };

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("key=text\r\n").repeated(500);
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("first page only") << whole.first(PageSize);
    QTest::newRow("half") << whole.first(whole.size() / 2);
    QTest::newRow("header with nothing behind") << whole.first(48);
    QTest::newRow("page that leads to itself")
        << withRightChild(static_cast<quint32>(root / PageSize + 1));
    QTest::newRow("page beyond the file") << withRightChild(60000);
    QTest::newRow("first cell beyond its page")
        << QByteArray(whole).replace(root + 4, 2, "\xff\xff");
    QTest::newRow("unreadable schema") << QByteArray(whole).replace(
        "CREATE TABLE products_global (", "CREATE TABLE products_global '");

    const QString file = folder.filePath(QStringLiteral("three.db"));
    WriteVersion3(file, "CREATE TABLE a (x); INSERT INTO a VALUES (zeroblob(20000))");
    const QByteArray three = BytesOf(file);
    QTest::newRow("version 3, header only") << three.first(100);
    QTest::newRow("version 3, half") << three.first(three.size() / 2);
    QTest::newRow("version 3, damaged schema")
        << QByteArray(three).replace("CREATE TABLE", "CREATE TABBY");
    QTest::newRow("version 3, start of the header") << three.first(16);
}

void TestBadFiles::testIsRefused()
{
    QFETCH(QByteArray, bytes);
    const QString file = folder.filePath(QStringLiteral("catalog.db"));
    WriteBytes(file, bytes);
    for (const QString &cache : {QString(), folder.filePath(QStringLiteral("cache"))}) {
        QTest::ignoreMessage(
            QtWarningMsg, QRegularExpression(QStringLiteral("catalog\\.db cannot be opened: .+")));
        SQLiteWrapper database(cache);
        QVERIFY(!database.Open(file));
        QVERIFY(!database.IsOpen());
        QString error;
        QCOMPARE(
            database.GetTable(QStringLiteral("SELECT * FROM products_global"), &error).UpperRow(),
            -1);
        QVERIFY(!error.isEmpty());
    }
    QVERIFY(!QDir(folder.filePath(QStringLiteral("cache"))).exists());
}

void TestBadFiles::testMissingFileIsRefused()
{
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("missing\\.db cannot be opened: .+")));
    SQLiteWrapper database{QString()};
    QVERIFY(!database.Open(folder.filePath(QStringLiteral("missing.db"))));
}

void TestBadFiles::testFolderIsRefused()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("cannot be opened: .+")));
    SQLiteWrapper database{QString()};
    QVERIFY(!database.Open(folder.path()));
}

void TestBadFiles::testCatalogueCutAtAnyPageIsRefusedOrRead()
{
    const QByteArray whole = BytesOf(SampleFile(QStringLiteral("catalog.db")));
    const QString file = folder.filePath(QStringLiteral("cut.db"));
    for (qsizetype size = 0; size < whole.size(); size += 3 * PageSize + 7) {
        WriteBytes(file, whole.first(size));
        SQLiteWrapper database{QString()};
        const bool isOpen = database.Open(file);
        const int rows =
            database.GetTable(QStringLiteral("SELECT ID FROM products_global")).UpperRow();
        QCOMPARE(rows, isOpen ? 150 : -1);
    }
}

void TestBadFiles::testGoodFileOpensAfterABadOne()
{
    const QString file = folder.filePath(QStringLiteral("again.db"));
    WriteBytes(file, "no catalogue");
    SQLiteWrapper database(folder.filePath(QStringLiteral("cache")));
    QVERIFY(!database.Open(file));
    WriteBytes(file, BytesOf(SampleFile(QStringLiteral("catalog.db"))));
    QVERIFY(database.Open(file));
    QCOMPARE(database.GetTable(QStringLiteral("SELECT ID FROM products_global")).UpperRow(), 150);
}

QTEST_APPLESS_MAIN(TestBadFiles)
#include "TestBadFiles.moc"
