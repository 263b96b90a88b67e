#include "base/tests/FileSizeLimit.h"
#include "core/Registry.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tesk;

namespace {

const QString Key = QStringLiteral("Software\\Test");
const QString Other = QStringLiteral("Software\\Other");
const QString Name = QStringLiteral("Location");

} // namespace

/// The JSON file's behaviour, which is the store everywhere but on Windows.
class TestRegistry : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;

    QString FileName() const { return folder->filePath(QStringLiteral("settings.json")); }

    void WriteFile(const QByteArray &bytes) const
    {
        QFile file(FileName());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    static QByteArray BytesOf(const QString &name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QJsonObject StoredKey() const
    {
        return QJsonDocument::fromJson(BytesOf(FileName())).object().value(Key).toObject();
    }

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
    }

    void testAbsentFileReadsAsEmpty()
    {
        QCOMPARE(Registry(FileName()).RegGetString(Key, Name), QString());
        QVERIFY(!QFile::exists(FileName()));
    }

    void testAbsentValueReadsAsEmpty()
    {
        Registry registry(FileName());
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        QCOMPARE(registry.RegGetString(Key, QStringLiteral("Street")), QString());
        QCOMPARE(registry.RegGetString(Other, Name), QString());
    }

    void testTextReadsBackAsWritten()
    {
        Registry registry(FileName());
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("abc"));
        QCOMPARE(StoredKey().value(Name).toString().size(), 3);
    }

    void testTextsKeepTheirCharacters()
    {
        Registry registry(FileName());
        const QString text = QStringLiteral(u" \"Stra\u00DFe\"\\ 5;\t\u20AC\n\u0142 ");
        registry.RegSetString(Key, Name, text);
        QCOMPARE(registry.RegGetString(Key, Name), text);
    }

    void testTextIsReadUpToItsFirstNul()
    {
        Registry registry(FileName());
        registry.RegSetString(Key, Name,
                              QStringLiteral("abc") + QChar(QChar::Null) + QStringLiteral("def"));
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("abc"));
    }

    void testValuesOfOtherTypesReadAsEmpty_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("number") << QByteArray("5");
        QTest::newRow("boolean") << QByteArray("true");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("list") << QByteArray("[\"abc\"]");
        QTest::newRow("object") << QByteArray("{\"a\": \"abc\"}");
    }

    void testValuesOfOtherTypesReadAsEmpty()
    {
        QFETCH(QByteArray, value);
        WriteFile("{\"Software\\\\Test\": {\"Location\": " + value + "}}");
        QCOMPARE(Registry(FileName()).RegGetString(Key, Name), QString());
    }

    void testWritingKeepsTheOtherValuesAndTheirTypes()
    {
        WriteFile(R"({"Software\\Test": {"Count": 5, "List": [1, "a"], "Street": "x"},
                      "Software\\Other": {"Location": "there"}})");
        Registry registry(FileName());
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        const QJsonObject expected{{QStringLiteral("Count"), 5},
                                   {QStringLiteral("List"), QJsonArray{1, QStringLiteral("a")}},
                                   {QStringLiteral("Street"), QStringLiteral("x")},
                                   {Name, QStringLiteral("abc")}};
        QCOMPARE(StoredKey(), expected);
        QCOMPARE(registry.RegGetString(Other, Name), QStringLiteral("there"));
    }

    void testWritingReplacesAValueOfAnotherType()
    {
        WriteFile(R"({"Software\\Test": {"Location": 5}})");
        Registry registry(FileName());
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("abc"));
    }

    void testEmptyTextIsStored()
    {
        Registry registry(FileName());
        registry.RegSetString(Key, Name, QString());
        QVERIFY(StoredKey().value(Name).isString());
    }

    void testDeletedValueReadsAsEmpty()
    {
        Registry registry(FileName());
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        registry.RegSetString(Key, QStringLiteral("Street"), QStringLiteral("x"));
        registry.RegDeleteValue(Key, Name);
        QVERIFY(!StoredKey().contains(Name));
        QCOMPARE(registry.RegGetString(Key, QStringLiteral("Street")), QStringLiteral("x"));
    }

    void testDeletingAnAbsentValueMakesNoFile()
    {
        Registry(FileName()).RegDeleteValue(Key, Name);
        QVERIFY(!QFile::exists(FileName()));
    }

    void testChangesOfAnotherProgramAreSeenAtOnce()
    {
        Registry registry(FileName());
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        WriteFile(R"({"Software\\Test": {"Location": "xyz"}})");
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("xyz"));
        QVERIFY(QFile::remove(FileName()));
        QCOMPARE(registry.RegGetString(Key, Name), QString());
    }

    void testTwoProgramsKeepEachOthersValues()
    {
        Registry first(FileName());
        Registry second(FileName());
        first.RegSetString(Key, Name, QStringLiteral("abc"));
        second.RegSetString(Key, QStringLiteral("Street"), QStringLiteral("x"));
        QCOMPARE(first.RegGetString(Key, QStringLiteral("Street")), QStringLiteral("x"));
        QCOMPARE(second.RegGetString(Key, Name), QStringLiteral("abc"));
    }

    void testFolderIsMadeAtTheFirstWrite()
    {
        const QString name = folder->filePath(QStringLiteral("a/b/settings.json"));
        Registry registry(name);
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("abc"));
    }

    void testNothingIsLeftBesideTheFile()
    {
        Registry(FileName()).RegSetString(Key, Name, QStringLiteral("abc"));
        QCOMPARE(QDir(folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{QStringLiteral("settings.json")});
    }

    void testLeftoversOfAnEndedProgramGoAndOtherFilesStay()
    {
        const auto beside = [this](const char *ending) {
            return FileName() + QLatin1Char('.') + QLatin1String(ending);
        };
        const auto makeFile = [&](const char *ending, const QDateTime &time) {
            QFile file(beside(ending));
            QVERIFY(file.open(QIODevice::WriteOnly));
            QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
        };
        const QDateTime now = QDateTime::currentDateTime();
        const QDateTime past = now.addDays(-1);
        makeFile("aBcDeF", past);
        makeFile("gHiJkL", now);
        for (const char *ending : {"backup", "Backup", "BACKUP", "Ma2024", "old"})
            makeFile(ending, past);
        Registry(FileName()).RegSetString(Key, Name, QStringLiteral("abc"));
        QVERIFY(!QFile::exists(beside("aBcDeF")));
        for (const char *ending : {"gHiJkL", "backup", "Backup", "BACKUP", "Ma2024", "old"})
            QVERIFY2(QFile::exists(beside(ending)), ending);
    }

    void testWriteIsLostWhileAnotherProgramHoldsTheSettings()
    {
        Registry registry(FileName());
        registry.RegSetString(Key, Name, QStringLiteral("old"));
        QLockFile otherProgram(FileName() + QStringLiteral(".lock"));
        QVERIFY(otherProgram.lock());
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("cannot be locked for writing")));
        registry.RegSetString(Key, Name, QStringLiteral("new"));
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("old"));
        otherProgram.unlock();
        registry.RegSetString(Key, Name, QStringLiteral("new"));
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("new"));
    }

    void testWriteIntoAnImpossibleFolderIsLost()
    {
        WriteFile("{}");
        Registry registry(FileName() + QStringLiteral("/below/settings.json"));
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("folder of the settings")));
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        QCOMPARE(registry.RegGetString(Key, Name), QString());
    }

#ifdef Q_OS_UNIX
    void testWriteRefusedByAFullDiskIsLostAndTheOldFileStaysWhole()
    {
        Registry registry(FileName());
        registry.RegSetString(Key, Name, QStringLiteral("old"));
        const QByteArray before = BytesOf(FileName());

        {
            // The lock fits, the new settings do not.
            const FileSizeLimit limit(4096);
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("settings cannot be written")));
            registry.RegSetString(Key, Name, QString(10000, QLatin1Char('x')));
        }

        QCOMPARE(BytesOf(FileName()), before);
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("old"));
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files),
                 QStringList{QStringLiteral("settings.json")});
    }
#endif

    void testEmptyFileIsFilled()
    {
        WriteFile(QByteArray());
        Registry registry(FileName());
        QCOMPARE(registry.RegGetString(Key, Name), QString());
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("abc"));
        QVERIFY(!QFile::exists(FileName() + QStringLiteral(".damaged")));
    }

    void testDamagedFileReadsAsEmptyAndStays()
    {
        const QByteArray damaged = R"({"Software\\Test": {"Location": "abc")";
        WriteFile(damaged);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("damaged")));
        QCOMPARE(Registry(FileName()).RegGetString(Key, Name), QString());
        QCOMPARE(BytesOf(FileName()), damaged);
    }

    void testDamagedFileIsKeptBesideTheNewOne_data()
    {
        QTest::addColumn<QByteArray>("damaged");
        QTest::newRow("cut off") << QByteArray(R"({"Software\\Test": {"Location": "abc")");
        QTest::newRow("no object") << QByteArray("[1]");
        QTest::newRow("sub-key of another type") << QByteArray(R"({"Software\\Test": 5})");
        QTest::newRow("bytes") << QByteArray("\xFF\xFE\0\x01", 4);
    }

    void testDamagedFileIsKeptBesideTheNewOne()
    {
        QFETCH(QByteArray, damaged);
        WriteFile(damaged);
        Registry registry(FileName());
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("settings are damaged")));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("are kept as")));
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        QCOMPARE(registry.RegGetString(Key, Name), QStringLiteral("abc"));
        QCOMPARE(BytesOf(FileName() + QStringLiteral(".damaged")), damaged);
    }

    void testSecondDamageKeepsTheFirstCopy()
    {
        Registry registry(FileName());
        for (const QByteArray damaged : {"{1", "{2"}) {
            WriteFile(damaged);
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("settings are damaged")));
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("are kept as")));
            registry.RegSetString(Key, Name, QStringLiteral("abc"));
        }
        QCOMPARE(BytesOf(FileName() + QStringLiteral(".damaged")), QByteArray("{1"));
        QCOMPARE(BytesOf(FileName() + QStringLiteral(".damaged-2")), QByteArray("{2"));
    }

    void testDeletingFromADamagedFileLeavesIt()
    {
        WriteFile("{1");
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("settings are damaged")));
        Registry(FileName()).RegDeleteValue(Key, Name);
        QCOMPARE(BytesOf(FileName()), QByteArray("{1"));
    }

    void testUnreadableFileReadsAsEmptyAndIsNotReplaced()
    {
        // A folder under the file's name can be opened by nobody, not even by root.
        QVERIFY(QDir().mkdir(FileName()));
        Registry registry(FileName());
        const QRegularExpression message(QStringLiteral("settings cannot be read"));
        QTest::ignoreMessage(QtWarningMsg, message);
        registry.RegSetString(Key, Name, QStringLiteral("abc"));
        QTest::ignoreMessage(QtWarningMsg, message);
        QCOMPARE(registry.RegGetString(Key, Name), QString());
        QVERIFY(QFileInfo(FileName()).isDir());
    }

    void testDefaultFileLiesInTheUsersConfigurationFolder()
    {
        const QByteArray before = qgetenv("XDG_CONFIG_HOME");
        qputenv("XDG_CONFIG_HOME", folder->path().toUtf8());
        const QString name = Registry::DefaultFileName();
        before.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before);
        QVERIFY(name.startsWith(folder->path() + QLatin1Char('/')));
        QVERIFY(name.endsWith(QStringLiteral(".json")));
    }
};

QTEST_GUILESS_MAIN(TestRegistry)
#include "TestRegistry.moc"
