#include "KnownKeys.h"

#include <QTest>

using namespace Tesk;

namespace {

const QString Key = QStringLiteral("SOFTWARE\\Maker");
const QString Name = QStringLiteral("Value");

} // namespace

class TestRegistryKeys : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<KnownKeys> registry;
    QString result;

    bool Read()
    {
        return GetKeyValue(*registry, RegistryKeys::Hive::LocalMachine, Key, Name, result);
    }

private Q_SLOTS:
    void init()
    {
        registry = std::make_unique<KnownKeys>();
        result = QStringLiteral("before");
    }

    void testTextIsReadWithoutItsTerminatingNul_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("read");
        const QChar nul = QChar::Null;
        QTest::newRow("with") << QStringLiteral("C:\\Tool.exe") + nul
                              << QStringLiteral("C:\\Tool.exe");
        QTest::newRow("without") << QStringLiteral("C:\\Tool.exe")
                                 << QStringLiteral("C:\\Tool.exe");
        QTest::newRow("only it") << QString(nul) << QString();
        QTest::newRow("empty") << QString() << QString();
    }

    void testTextIsReadWithoutItsTerminatingNul()
    {
        QFETCH(const QString, stored);
        QFETCH(const QString, read);
        registry->SetText(Key, Name, stored);
        QVERIFY(Read());
        QCOMPARE(result, read);
        QCOMPARE(registry->openCount, 0);
    }

    void testNumberIsReadAsHexadecimalDigits_data()
    {
        QTest::addColumn<quint32>("number");
        QTest::addColumn<QString>("read");
        QTest::newRow("zero") << 0U << QStringLiteral("&h0");
        QTest::newRow("small") << 10U << QStringLiteral("&hA");
        QTest::newRow("digits and letters") << 0x12ABU << QStringLiteral("&h12AB");
        QTest::newRow("largest") << 0xFFFFFFFFU << QStringLiteral("&hFFFFFFFF");
    }

    void testNumberIsReadAsHexadecimalDigits()
    {
        QFETCH(const quint32, number);
        QFETCH(const QString, read);
        registry->keys[Key][Name] = {RegistryKeys::ValueType::Number, QString(), number};
        QVERIFY(Read());
        QCOMPARE(result, read);
        QCOMPARE(registry->openCount, 0);
    }

    void testOtherTypesAreNotRead()
    {
        registry->keys[Key][Name] = {RegistryKeys::ValueType::Other, QStringLiteral("x"), 7};
        QVERIFY(!Read());
        QCOMPARE(result, QStringLiteral("before"));
        QCOMPARE(registry->openCount, 0);
    }

    void testMissingValueIsNotReadAndItsKeyIsClosed()
    {
        registry->SetText(Key, QStringLiteral("Other"), QStringLiteral("x"));
        QVERIFY(!Read());
        QCOMPARE(result, QStringLiteral("before"));
        QCOMPARE(registry->openedKeys, QStringList{Key});
        QCOMPARE(registry->openCount, 0);
    }

    void testMissingKeyIsNotRead()
    {
        QVERIFY(!Read());
        QCOMPARE(result, QStringLiteral("before"));
        QCOMPARE(registry->openCount, 0);
    }

    void testKeyIsOpenedWithItsHiveAndAccess()
    {
        GetKeyValue(*registry, RegistryKeys::Hive::CurrentUser, Key, Name, result);
        QCOMPARE(registry->openedHives, QList<RegistryKeys::Hive>{RegistryKeys::Hive::CurrentUser});
        QCOMPARE(registry->accessMasks, QList<quint32>{0x2003F});
    }

#ifndef Q_OS_WIN
    void testSystemWithoutRegistryHasNoValues()
    {
        const auto system = RegistryKeys::OfSystem();
        QVERIFY(!GetKeyValue(*system, RegistryKeys::Hive::LocalMachine, Key, Name, result));
        QCOMPARE(result, QStringLiteral("before"));
    }
#endif
};

QTEST_GUILESS_MAIN(TestRegistryKeys)
#include "TestRegistryKeys.moc"
