#include "base/Errors.h"
#include "base/tests/TranslatedErrors.h"
#include "core/PriceList.h"
#include "core/Registry.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tesk;

namespace {

const QString PathSetting = QStringLiteral("PriceListPath");

} // namespace

class TestPriceList : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<Registry> registry;

    /// Writes a price list and gives its path.
    QString Write(const QByteArray &bytes, const QString &name = QStringLiteral("prices.txt")) const
    {
        QString path = folder->filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the test's file cannot be written");
        return path;
    }

    QString StoredPath() const { return registry->RegGetString(SettingsKey, PathSetting); }

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
        registry = std::make_unique<Registry>(folder->filePath(QStringLiteral("settings.json")));
    }

    void testNoListAtFirst()
    {
        const PriceList prices(*registry);
        QVERIFY(!prices.HasPriceList());
        QCOMPARE(prices.GetPrice(QStringLiteral("AB 123")), QString());
    }

    void testLines_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("artNr");
        QTest::addColumn<QString>("price");
        const QString spaced = QStringLiteral("AB 123");
        const QString joined = QStringLiteral("AB123");
        const QString price = QStringLiteral("12,50&nbsp;EUR");
        QTest::newRow("blank in the list") << QByteArray("AB 123\t12,50\r\n") << joined << price;
        QTest::newRow("blank in the question") << QByteArray("AB123\t12,50\r\n") << spaced << price;
        QTest::newRow("blanks everywhere")
            << QByteArray(" A B  123 \t12,50\r\n") << QStringLiteral("AB1 23  ") << price;
        QTest::newRow("empty price") << QByteArray("AB 123\t\r\n") << spaced << QString();
        QTest::newRow("three fields") << QByteArray("AB 123\t12,50\tx\r\n") << spaced << QString();
        QTest::newRow("one field") << QByteArray("AB 123 12,50\r\n") << spaced << QString();
        QTest::newRow("price is kept as written")
            << QByteArray("AB123\t 1.012,5 \r\n") << joined << QStringLiteral(" 1.012,5 &nbsp;EUR");
        QTest::newRow("price is no number") << QByteArray("AB123\tauf Anfrage\r\n") << joined
                                            << QStringLiteral("auf Anfrage&nbsp;EUR");
        QTest::newRow("behind empty lines")
            << QByteArray("\r\n\r\nAB123\t12,50\r\n") << joined << price;
        QTest::newRow("LF only") << QByteArray("X\t1\nAB123\t12,50\n") << joined << price;
        QTest::newRow("other case") << QByteArray("ab123\t12,50\r\n") << joined << QString();
        QTest::newRow("not in the list") << QByteArray("X\t1\r\n") << joined << QString();
        QTest::newRow("no-break space is no blank") << QByteArray("AB\xA0"
                                                                  "123\t12,50\r\n")
                                                    << joined << QString();
        QTest::newRow("code page")
            << QByteArray("\xC4"
                          "1\t5 \x80\r\n")
            << QStringLiteral(u"\u00C4 1") << QStringLiteral(u"5 \u20AC&nbsp;EUR");
    }

    void testLines()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, artNr);
        QFETCH(QString, price);
        PriceList prices(*registry);
        prices.LoadPriceList(Write(bytes));
        QVERIFY(prices.HasPriceList());
        QCOMPARE(prices.GetPrice(artNr), price);
    }

    void testLoadStoresThePath()
    {
        PriceList prices(*registry);
        const QString path = Write("AB123\t12,50\r\n");
        prices.LoadPriceList(path);
        QCOMPARE(StoredPath(), path);
    }

    void testLoadReplacesTheList()
    {
        PriceList prices(*registry);
        prices.LoadPriceList(Write("A\t1\r\n"));
        prices.LoadPriceList(Write("B\t2\r\n"));
        QCOMPARE(prices.GetPrice(QStringLiteral("A")), QString());
        QCOMPARE(prices.GetPrice(QStringLiteral("B")), QStringLiteral("2&nbsp;EUR"));
    }

    void testListWithoutAnyPriceIsAList()
    {
        PriceList prices(*registry);
        prices.LoadPriceList(Write("\r\n"));
        QVERIFY(prices.HasPriceList());
    }

    void testMissingFileLeavesAnEmptyListAndTheOldPath()
    {
        PriceList prices(*registry);
        const QString path = Write("A\t1\r\n");
        prices.LoadPriceList(path);
        QVERIFY_THROWS_EXCEPTION(
            FileError, prices.LoadPriceList(folder->filePath(QStringLiteral("none.txt"))));
        QVERIFY(prices.HasPriceList());
        QCOMPARE(prices.GetPrice(QStringLiteral("A")), QString());
        QCOMPARE(StoredPath(), path);
    }

    void testEmptyFileIsAnError()
    {
        PriceList prices(*registry);
        QVERIFY_THROWS_EXCEPTION(FileError, prices.LoadPriceList(Write(QByteArray())));
        QCOMPARE(StoredPath(), QString());
    }

    void testFolderIsAnError()
    {
        PriceList prices(*registry);
        QVERIFY_THROWS_EXCEPTION(FileError, prices.LoadPriceList(folder->path()));
        QCOMPARE(StoredPath(), QString());
    }

    void testDoubledArticleNumberIsAnErrorAndTheLinesBeforeStand()
    {
        PriceList prices(*registry);
        const QString path = Write("A 1\t1\r\nB\t2\r\nA1\t3\r\nC\t4\r\n");
        QVERIFY_THROWS_EXCEPTION(DuplicateKeyError, prices.LoadPriceList(path));
        QCOMPARE(prices.GetPrice(QStringLiteral("A1")), QStringLiteral("1&nbsp;EUR"));
        QCOMPARE(prices.GetPrice(QStringLiteral("B")), QStringLiteral("2&nbsp;EUR"));
        QCOMPARE(prices.GetPrice(QStringLiteral("C")), QString());
        QCOMPARE(StoredPath(), QString());
    }

    void testTranslatedMessagesNameTheFileAndTheNumber()
    {
        PriceList prices(*registry);
        const QString path = Write("A 1\t1\r\nA1\t3\r\n");
        const auto load = [&] { return KeyAndValuesOfError([&] { prices.LoadPriceList(path); }); };
        QCOMPARE(load(), QLatin1String("errorPriceListTwice|") + QDir::toNativeSeparators(path) +
                             QLatin1String("|A1|{2}"));
        QCOMPARE(Write(QByteArray()), path);
        QCOMPARE(load(), QLatin1String("errorPriceList|") + QDir::toNativeSeparators(path) +
                             QLatin1String("|{1}|{2}"));
    }

    void testArticleNumberWithoutAPriceIsInTheListAllTheSame()
    {
        PriceList prices(*registry);
        QVERIFY_THROWS_EXCEPTION(DuplicateKeyError, prices.LoadPriceList(Write("A\t\r\nA\t1\r\n")));
    }

    void testSkippedLinesDoNotCountAsDoubled()
    {
        PriceList prices(*registry);
        prices.LoadPriceList(Write("A\t1\tx\r\nA\t2\r\n"));
        QCOMPARE(prices.GetPrice(QStringLiteral("A")), QStringLiteral("2&nbsp;EUR"));
    }

    void testStartWithoutAPathLoadsNothing()
    {
        PriceList prices(*registry);
        QCOMPARE(prices.LoadPriceListAtStart(), QString());
        QVERIFY(!prices.HasPriceList());
    }

    void testStartLoadsTheStoredList()
    {
        registry->RegSetString(SettingsKey, PathSetting, Write("A\t1\r\n"));
        PriceList prices(*registry);
        QCOMPARE(prices.LoadPriceListAtStart(), QString());
        QCOMPARE(prices.GetPrice(QStringLiteral("A")), QStringLiteral("1&nbsp;EUR"));
    }

    void testFailedStartForgetsThePathAndSaysSo()
    {
        const QString path = folder->filePath(QStringLiteral("none.txt"));
        registry->RegSetString(SettingsKey, PathSetting, path);
        PriceList prices(*registry);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("none.txt")));
        QCOMPARE(prices.LoadPriceListAtStart(),
                 QStringLiteral("Price list ") + path + QStringLiteral(" can not be found!"));
        QCOMPARE(StoredPath(), QString());
        QCOMPARE(PriceList(*registry).LoadPriceListAtStart(), QString());
    }

    void testFailedStartSaysTheSameOfADoubledArticleNumber()
    {
        const QString path = Write("A\t1\r\nA\t2\r\n", QStringLiteral("100% 1.txt"));
        registry->RegSetString(SettingsKey, PathSetting, path);
        PriceList prices(*registry);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("twice")));
        QCOMPARE(prices.LoadPriceListAtStart(),
                 QStringLiteral("Price list ") + path + QStringLiteral(" can not be found!"));
        QCOMPARE(StoredPath(), QString());
        QCOMPARE(prices.GetPrice(QStringLiteral("A")), QStringLiteral("1&nbsp;EUR"));
    }
};

QTEST_GUILESS_MAIN(TestPriceList)
#include "TestPriceList.moc"
