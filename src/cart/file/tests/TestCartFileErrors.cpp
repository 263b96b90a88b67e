#include "base/Errors.h"
#include "base/tests/TranslatedErrors.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/file/tests/CartFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <random>

using namespace Tesk;
using namespace Tesk::CartFiles;

namespace {

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

const QByteArray GoodRecord("1;AB 1;Clamp;3;\r\n\r\n");
const QString GoodLine = QStringLiteral("1|AB 1|Clamp|3|");

} // namespace

/// Files that cannot be loaded: what is said about them, and what stays in the cart.
class TestCartFileErrors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testTooFewFieldsStopTheLoad_data();
    void testTooFewFieldsStopTheLoad();
    void testBadAmountStopsTheLoad_data();
    void testBadAmountStopsTheLoad();
    void testBadMemberStopsTheLoadWithoutItsSet();
    void testMessageNamesFileLineAndText();
    void testMessageNamesTheAmount();
    void testMessageOfALongLineIsShort();
    void testTranslatedMessagesNameTheSame();
    void testFileIsClosedAfterAnError();
    void testFileThatCannotBeOpenedLeavesTheCart_data();
    void testFileThatCannotBeOpenedLeavesTheCart();
    void testItemBeyondTheCartsLimit();
    void testMemberBeyondASetsLimit();
    void testRandomBytesLoadOrAreReported();

private:
    template <typename Error>
    QString ErrorOf(const QByteArray &bytes);
    QString TranslatedErrorOf(const QByteArray &bytes);
    QString Translated(const char *key, const char *line, const char *lastValue) const;

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
    clsShoppingCart cart;
};

void TestCartFileErrors::init()
{
    folder = std::make_unique<QTemporaryDir>();
    path = folder->filePath(Text("order.csv"));
    cart.Clear();
}

/// The message of the error of this type that loading the bytes ends in; empty without one.
template <typename Error>
QString TestCartFileErrors::ErrorOf(const QByteArray &bytes)
{
    WriteBytes(path, bytes);
    try {
        ShoppingCartFile::Load(path, cart);
    } catch (const Error &error) {
        return error.Message();
    }
    return QString();
}

/// Key and values of the error that loading the bytes ends in.
QString TestCartFileErrors::TranslatedErrorOf(const QByteArray &bytes)
{
    return KeyAndValuesOfError([&] {
        WriteBytes(path, bytes);
        ShoppingCartFile::Load(path, cart);
    });
}

QString TestCartFileErrors::Translated(const char *key, const char *line,
                                       const char *lastValue) const
{
    return QStringList({Text(key), Text(line), QDir::toNativeSeparators(path), Text(lastValue)})
        .join(u'|');
}

void TestCartFileErrors::testTooFewFieldsStopTheLoad_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("four fields") << QByteArray("5;A-1;Clamp;2");
    QTest::newRow("one") << QByteArray("5");
    QTest::newRow("a blank") << QByteArray(" ");
    QTest::newRow("another separator") << QByteArray("5,A-1,Clamp,2,");
    QTest::newRow("NULs") << QByteArray(40, '\0');
    QTest::newRow("head of a picture") << QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE"
                                          "5\0;\0A\0\r\0\n\0",
                                          12);
}

void TestCartFileErrors::testTooFewFieldsStopTheLoad()
{
    QFETCH(const QByteArray, line);
    QVERIFY(ErrorOf<SubscriptError>(GoodRecord + line + "\r\n\r\n" + GoodRecord)
                .startsWith(Text("Line 3 ")));
    QCOMPARE(LinesOf(cart), QStringList(GoodLine));
}

void TestCartFileErrors::testBadAmountStopsTheLoad_data()
{
    QTest::addColumn<QByteArray>("amount");
    QTest::newRow("word") << QByteArray("two");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("too large") << QByteArray("32768");
    QTest::newRow("too small") << QByteArray("-32769");
    QTest::newRow("far too large") << QByteArray(400, '9');
    QTest::newRow("NUL behind the number") << QByteArray("1\0", 2);
    QTest::newRow("infinity") << QByteArray("inf");
}

void TestCartFileErrors::testBadAmountStopsTheLoad()
{
    QFETCH(const QByteArray, amount);
    QVERIFY(
        ErrorOf<ConversionError>(GoodRecord + "2;AB 2;Case;" + amount + ";\r\n\r\n" + GoodRecord)
            .startsWith(Text("Line 3 ")));
    QCOMPARE(LinesOf(cart), QStringList(GoodLine));
}

void TestCartFileErrors::testBadMemberStopsTheLoadWithoutItsSet()
{
    QVERIFY(ErrorOf<SubscriptError>(GoodRecord + "2;AB 2;Set;1;\r\n3;AB 3;Case\r\n\r\n")
                .startsWith(Text("Line 4 ")));
    QCOMPARE(LinesOf(cart), QStringList(GoodLine));
}

void TestCartFileErrors::testMessageNamesFileLineAndText()
{
    const QString message = ErrorOf<SubscriptError>(GoodRecord + "5;A-1;Clamp \x01 \xE4;2");
    QVERIFY(message.contains(Text("Line 3")));
    QVERIFY(message.contains(QDir::toNativeSeparators(path)));
    QVERIFY(message.contains(Text("\"5;A-1;Clamp ? ä;2\"")));
}

void TestCartFileErrors::testMessageNamesTheAmount()
{
    const QString message = ErrorOf<ConversionError>(GoodRecord + "5;A-1;Clamp;many;\r\n");
    QVERIFY(message.contains(Text("Line 3")));
    QVERIFY(message.contains(QDir::toNativeSeparators(path)));
    QVERIFY(message.contains(Text("\"many\"")));
}

void TestCartFileErrors::testMessageOfALongLineIsShort()
{
    const QString message = ErrorOf<SubscriptError>(QByteArray(1000000, 'x'));
    QVERIFY(!message.isEmpty());
    QVERIFY(message.size() < 500);
}

void TestCartFileErrors::testTranslatedMessagesNameTheSame()
{
    const QString fileName = QDir::toNativeSeparators(path);
    QCOMPARE(TranslatedErrorOf(GoodRecord + "5;A-1;Clamp;2"),
             Translated("errorCartFields", "3", "5;A-1;Clamp;2"));
    QCOMPARE(TranslatedErrorOf(GoodRecord + "5;A-1;Clamp;many;\r\n"),
             Translated("errorCartAmount", "3", "many"));
    QVERIFY(QFile::remove(path));
    QVERIFY(KeyAndValuesOfError([this] {
                ShoppingCartFile::Load(path, cart);
            }).startsWith(Text("errorCartOpen|") + fileName + u'|'));
}

void TestCartFileErrors::testFileIsClosedAfterAnError()
{
    const QDir openFiles(Text("/proc/self/fd"));
    if (!openFiles.exists())
        QSKIP("The system does not list a program's open files.");
    const auto countOf = [&openFiles] {
        return openFiles.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
    };
    const auto before = countOf();
    QVERIFY(!ErrorOf<SubscriptError>("5").isEmpty());
    QCOMPARE(countOf(), before);
}

void TestCartFileErrors::testFileThatCannotBeOpenedLeavesTheCart_data()
{
    QTest::addColumn<bool>("isFolder");
    QTest::newRow("missing") << false;
    QTest::newRow("folder") << true;
}

void TestCartFileErrors::testFileThatCannotBeOpenedLeavesTheCart()
{
    QFETCH(const bool, isFolder);
    if (isFolder)
        QVERIFY(QDir().mkdir(path));
    cart.AddItem(MakeItem(Text("9"), Text("ZZ 9"), Text("Old"), 1));
    QString message;
    try {
        ShoppingCartFile::Load(path, cart);
    } catch (const FileError &error) {
        message = error.Message();
    }
    QVERIFY(message.contains(QDir::toNativeSeparators(path)));
    QCOMPARE(LinesOf(cart), QStringList(Text("9|ZZ 9|Old|1|")));
}

void TestCartFileErrors::testItemBeyondTheCartsLimit()
{
    QByteArray bytes = GoodRecord.repeated(32767);
    QCOMPARE(ErrorOf<CatalogueError>(bytes), QString());
    QCOMPARE(cart.Count(), qint16{32767});
    // The 32768th item ends with line 65536.
    bytes += GoodRecord;
    QVERIFY(ErrorOf<OverflowError>(bytes).startsWith(Text("Line 65536 ")));
    QCOMPARE(cart.Count(), qint16{32767});
    QCOMPARE(TranslatedErrorOf(bytes), Translated("errorCartItems", "65536", "32767"));
}

void TestCartFileErrors::testMemberBeyondASetsLimit()
{
    const QByteArray line("1;AB 1;Clamp;3;\r\n");
    QCOMPARE(ErrorOf<CatalogueError>(GoodRecord + line + line.repeated(32767) + "\r\n"), QString());
    QCOMPARE(cart.Entries().At(1)->SetItems->UpperBound(), 32766);
    QVERIFY(ErrorOf<OverflowError>(GoodRecord + line + line.repeated(32768) + "\r\n")
                .startsWith(Text("Line 32771 ")));
    QCOMPARE(LinesOf(cart), QStringList(GoodLine));
    QCOMPARE(TranslatedErrorOf(GoodRecord + line + line.repeated(32768)),
             Translated("errorCartMembers", "32771", "32767"));
}

void TestCartFileErrors::testRandomBytesLoadOrAreReported()
{
    std::mt19937 random(20240612);
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes;
        const int parts = std::uniform_int_distribution<int>(0, 30)(random);
        for (int i = 0; i < parts; ++i) {
            switch (std::uniform_int_distribution<int>(0, 4)(random)) {
            case 0:
                bytes += char(std::uniform_int_distribution<int>(0, 255)(random));
                break;
            case 1:
                bytes += "\r\n";
                break;
            case 2:
                bytes += "1;2;3;4;5";
                break;
            case 3:
                bytes += GoodRecord;
                break;
            default:
                bytes += ';';
            }
        }
        WriteBytes(path, bytes);
        try {
            ShoppingCartFile::Load(path, cart);
        } catch (const CatalogueError &error) {
            QVERIFY2(error.Message().startsWith(Text("Line ")), qPrintable(error.Message()));
            QVERIFY(error.Message().contains(QDir::toNativeSeparators(path)));
        }
        for (const auto &item : cart.Entries())
            QVERIFY(item->IsSet());
    }
}

QTEST_APPLESS_MAIN(TestCartFileErrors)
#include "TestCartFileErrors.moc"
