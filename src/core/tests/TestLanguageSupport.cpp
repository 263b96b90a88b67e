#include "base/Errors.h"
#include "core/LanguageSupport.h"
#include "core/Registry.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tesk;

namespace {

const QString Location = QStringLiteral("Location");
const QString Measure = QStringLiteral("Measure");

} // namespace

class TestLanguageSupport : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<Registry> registry;

    QString TextFile(const QString &code) const
    {
        return folder->filePath(QStringLiteral("loc_%1.txt").arg(code));
    }

    void WriteTexts(const QString &code, const QByteArray &bytes) const
    {
        QFile file(TextFile(code));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    LanguageSupport Languages(const QLocale &locale = QLocale(QLocale::English,
                                                              QLocale::UnitedKingdom)) const
    {
        return LanguageSupport(*registry, folder->path(), locale);
    }

    QString Stored(const QString &name) const { return registry->RegGetString(SettingsKey, name); }

private Q_SLOTS:
    /// Five files, each with the text "code" that names its language.
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
        registry = std::make_unique<Registry>(folder->filePath(QStringLiteral("settings.json")));
        for (const QString &code : LanguageSupport::GetLanguageCodes())
            WriteTexts(code, "code=" + code.toLatin1() + "\r\n");
    }

    void testCodesStandInTheirOrder()
    {
        QCOMPARE(LanguageSupport::GetLanguageCodes(),
                 QStringList({QStringLiteral("ge"), QStringLiteral("en"), QStringLiteral("fr"),
                              QStringLiteral("sp"), QStringLiteral("it")}));
    }

    void testFirstStartFollowsTheLocale_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("location");
        QTest::addColumn<qint16>("index");
        QTest::addColumn<QString>("code");
        QTest::newRow("Germany") << QLocale(QLocale::German, QLocale::Germany)
                                 << QStringLiteral("German") << qint16(0) << QStringLiteral("ge");
        QTest::newRow("Austria") << QLocale(QLocale::German, QLocale::Austria)
                                 << QStringLiteral("German") << qint16(0) << QStringLiteral("ge");
        QTest::newRow("England") << QLocale(QLocale::English, QLocale::UnitedKingdom)
                                 << QStringLiteral("English") << qint16(1) << QStringLiteral("en");
        QTest::newRow("France") << QLocale(QLocale::French, QLocale::France)
                                << QStringLiteral("French") << qint16(2) << QStringLiteral("fr");
        QTest::newRow("Mexico") << QLocale(QLocale::Spanish, QLocale::Mexico)
                                << QStringLiteral("Spanish") << qint16(3) << QStringLiteral("sp");
        QTest::newRow("Italy") << QLocale(QLocale::Italian, QLocale::Italy)
                               << QStringLiteral("Italian") << qint16(4) << QStringLiteral("it");
        QTest::newRow("Netherlands")
            << QLocale(QLocale::Dutch, QLocale::Netherlands) << QStringLiteral("Dutch") << qint16(1)
            << QStringLiteral("en");
    }

    void testFirstStartFollowsTheLocale()
    {
        QFETCH(QLocale, locale);
        QFETCH(QString, location);
        QFETCH(qint16, index);
        QFETCH(QString, code);
        LanguageSupport languages = Languages(locale);
        languages.InitLanguages();
        QCOMPARE(Stored(Location), location);
        QCOMPARE(languages.GetLanguageIndex(), index);
        QCOMPARE(languages.CurrentCode(), code);
        QCOMPARE(languages.GetText(QStringLiteral("code")), code);
    }

    void testStoredLanguageStandsAboveTheLocale()
    {
        registry->RegSetString(SettingsKey, Location, QStringLiteral("French"));
        LanguageSupport languages = Languages(QLocale(QLocale::German));
        languages.InitLanguages();
        QCOMPARE(languages.CurrentCode(), QStringLiteral("fr"));
        QCOMPARE(Stored(Location), QStringLiteral("French"));
    }

    void testUnknownStoredLanguageGivesEnglishAndStays_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("another language") << QStringLiteral("Dutch");
        QTest::newRow("lower case") << QStringLiteral("german");
        QTest::newRow("blank behind") << QStringLiteral("German ");
    }

    void testUnknownStoredLanguageGivesEnglishAndStays()
    {
        QFETCH(QString, name);
        registry->RegSetString(SettingsKey, Location, name);
        LanguageSupport languages = Languages(QLocale(QLocale::German));
        languages.InitLanguages();
        QCOMPARE(languages.GetLanguageIndex(), qint16(1));
        QCOMPARE(Stored(Location), name);
    }

    void testMeasureIsStoredAtEveryStart()
    {
        registry->RegSetString(SettingsKey, Measure, QStringLiteral("1"));
        Languages(QLocale(QLocale::German, QLocale::Germany)).InitLanguages();
        QCOMPARE(Stored(Measure), QStringLiteral("0"));
        Languages(QLocale(QLocale::English, QLocale::UnitedStates)).InitLanguages();
        QCOMPARE(Stored(Measure), QStringLiteral("1"));
        Languages(QLocale(QLocale::English, QLocale::UnitedKingdom)).InitLanguages();
        QCOMPARE(Stored(Measure), QStringLiteral("0"));
    }

    void testLocaleItems()
    {
        const LanguageSupport languages = Languages(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(languages.GetLocaleString(QStringLiteral("4097")), QStringLiteral("German"));
        QCOMPARE(languages.GetLocaleString(QStringLiteral("13")), QStringLiteral("0"));
        QCOMPARE(languages.GetLocaleString(QStringLiteral("1")), QString());
    }

    void testSetLanguageStoresItsNameAndSwitchesTheTexts()
    {
        LanguageSupport languages = Languages();
        languages.InitLanguages();
        languages.SetLanguage(2);
        QCOMPARE(Stored(Location), QStringLiteral("French"));
        QCOMPARE(languages.GetLanguageIndex(), qint16(2));
        QCOMPARE(languages.GetText(QStringLiteral("code")), QStringLiteral("fr"));
        LanguageSupport nextStart = Languages();
        nextStart.InitLanguages();
        QCOMPARE(nextStart.CurrentCode(), QStringLiteral("fr"));
    }

    void testSetLanguageStoresEveryName()
    {
        LanguageSupport languages = Languages();
        const QStringList names{QStringLiteral("German"), QStringLiteral("English"),
                                QStringLiteral("French"), QStringLiteral("Spanish"),
                                QStringLiteral("Italian")};
        for (qint16 index = 0; index < 5; ++index) {
            languages.SetLanguage(index);
            QCOMPARE(Stored(Location), names.at(index));
        }
    }

    void testSetLanguageRefusesOtherIndexes()
    {
        LanguageSupport languages = Languages();
        QVERIFY_THROWS_EXCEPTION(SubscriptError, languages.SetLanguage(5));
        QVERIFY_THROWS_EXCEPTION(SubscriptError, languages.SetLanguage(-1));
        QCOMPARE(languages.GetLanguageIndex(), qint16(1));
        QCOMPARE(Stored(Location), QString());
    }

    void testMissingKeyIsEmptyWithoutFallback()
    {
        WriteTexts(QStringLiteral("ge"), "only=hier\r\n");
        LanguageSupport languages = Languages();
        languages.InitLanguages();
        QCOMPARE(languages.GetText(QStringLiteral("only")), QString());
        QCOMPARE(languages.GetText(QStringLiteral("CODE")), QString());
    }

    void testLines_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        const QString a = QStringLiteral("a");
        QTest::newRow("plain") << QByteArray("a=b\r\n") << a << QStringLiteral("b");
        QTest::newRow("two signs") << QByteArray("a=b=c\r\n") << a << QString();
        QTest::newRow("no sign") << QByteArray("a\r\n") << a << QString();
        QTest::newRow("no text") << QByteArray("a=\r\n") << a << QString();
        QTest::newRow("no key") << QByteArray("=x\r\n") << QString() << QStringLiteral("x");
        QTest::newRow("blanks are kept")
            << QByteArray(" a = b \r\n") << QStringLiteral(" a ") << QStringLiteral(" b ");
        QTest::newRow("blanks are no part of another key")
            << QByteArray(" a = b \r\n") << a << QString();
        QTest::newRow("LF only") << QByteArray("x=y\na=b\n") << a << QStringLiteral("b");
        QTest::newRow("last line without an end") << QByteArray("a=b") << a << QStringLiteral("b");
        QTest::newRow("behind empty and blank lines")
            << QByteArray("\r\n   \r\na=b\r\n") << a << QStringLiteral("b");
        QTest::newRow("code page")
            << QByteArray("a=\xDF\x9C\x80\r\n") << a << QStringLiteral(u"\u00DF\u0153\u20AC");
        QTest::newRow("line break marker stays")
            << QByteArray("a=b{nl}c\r\n") << a << QStringLiteral("b{nl}c");
    }

    void testLines()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, key);
        QFETCH(QString, text);
        WriteTexts(QStringLiteral("en"), bytes);
        LanguageSupport languages = Languages();
        languages.InitLanguages();
        QCOMPARE(languages.GetText(key), text);
    }

    void testKeysThatDifferInCaseAreTwoKeys()
    {
        WriteTexts(QStringLiteral("en"), "a=lower\r\nA=upper\r\n");
        LanguageSupport languages = Languages();
        languages.InitLanguages();
        QCOMPARE(languages.GetText(QStringLiteral("a")), QStringLiteral("lower"));
        QCOMPARE(languages.GetText(QStringLiteral("A")), QStringLiteral("upper"));
    }

    void testDoubledKeyIsAnErrorInAnyLanguage()
    {
        WriteTexts(QStringLiteral("it"), "a=b\r\nx=y\r\na=c\r\n");
        LanguageSupport languages = Languages();
        QVERIFY_THROWS_EXCEPTION(DuplicateKeyError, languages.InitLanguages());
    }

    void testDoubledEmptyKeyIsAnError()
    {
        WriteTexts(QStringLiteral("en"), "=b\r\n=c\r\n");
        LanguageSupport languages = Languages();
        QVERIFY_THROWS_EXCEPTION(DuplicateKeyError, languages.InitLanguages());
    }

    void testKeyWithoutATextIsDefinedAllTheSame()
    {
        WriteTexts(QStringLiteral("en"), "a=\r\na=b\r\n");
        LanguageSupport languages = Languages();
        QVERIFY_THROWS_EXCEPTION(DuplicateKeyError, languages.InitLanguages());
    }

    void testDoubledKeyOnASkippedLineIsNoError()
    {
        WriteTexts(QStringLiteral("en"), "a=b\r\na=c=d\r\n");
        LanguageSupport languages = Languages();
        languages.InitLanguages();
        QCOMPARE(languages.GetText(QStringLiteral("a")), QStringLiteral("b"));
    }

    void testMissingFileIsNamed()
    {
        QVERIFY(QFile::remove(TextFile(QStringLiteral("sp"))));
        LanguageSupport languages = Languages();
        try {
            languages.InitLanguages();
            QFAIL("no error");
        } catch (const FileError &error) {
            QVERIFY(error.Message().contains(QStringLiteral("loc_sp.txt")));
            QVERIFY(error.Message().contains(QStringLiteral("Install the catalogue again.")));
        }
    }

    void testEmptyFileIsNamed()
    {
        WriteTexts(QStringLiteral("fr"), QByteArray());
        LanguageSupport languages = Languages();
        try {
            languages.InitLanguages();
            QFAIL("no error");
        } catch (const FileError &error) {
            QVERIFY(error.Message().contains(QStringLiteral("loc_fr.txt")));
        }
    }

    void testSettingsStandUnderTheProgramsKey()
    {
        LanguageSupport languages = Languages();
        languages.SaveSetting(QStringLiteral("Street"), QStringLiteral("Main 5"));
        QCOMPARE(registry->RegGetString(QStringLiteral("Software\\Tesk"), QStringLiteral("Street")),
                 QStringLiteral("Main 5"));
        QCOMPARE(languages.GetSetting(QStringLiteral("Street")), QStringLiteral("Main 5"));
        QCOMPARE(languages.GetSetting(QStringLiteral("Phone")), QString());
    }
};

QTEST_GUILESS_MAIN(TestLanguageSupport)
#include "TestLanguageSupport.moc"
