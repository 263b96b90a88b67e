#include "core/SQLiteWrapper.h"
#include "core/database/CatalogueCache.h"
#include "core/database/FileStamp.h"
#include "core/database/SourceIdentity.h"
#include "core/database/tests/DatabaseFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <chrono>
#include <iostream>
#include <memory>
#include <thread>
#include <vector>

using namespace Tesk;
using namespace Tesk::Database;

namespace {

using Clock = std::chrono::system_clock;
using Moment = Clock::time_point;

/// When the files of the test have long been as they are.
Moment Later()
{
    return Clock::now() + std::chrono::hours(1);
}

Version2Table TableOf(const QByteArray &text)
{
    return {"CREATE TABLE a (x TEXT)", "a", {{text}}};
}

/// The program's argument that makes it tell what a cache holds for a file.
const QString FindKeptCommand = QStringLiteral("find-kept");

QString Answer(const SQLiteWrapper &database)
{
    return RowsOf(database.GetTable(QStringLiteral("SELECT x FROM a"))).join(QLatin1Char(','));
}

QDateTime ModifiedTime(const QString &fileName)
{
    return QFileInfo(fileName).lastModified();
}

void SetModifiedTime(const QString &fileName, const QDateTime &time)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
}

} // namespace

/// A kept import is used when it is the source's, and made anew whenever it is not.
class TestCatalogueCache : public QObject
{
    Q_OBJECT

public:
    explicit TestCatalogueCache(const QString &program)
        : programName(program)
    {}

private Q_SLOTS:
    void init();
    void testImportIsKeptAndUsedAgain();
    void testLargeImportIsKnownToAnotherProgram();
    void testKeptFileHoldsTheAnswers();
    void testChangedSourceIsReadAnew();
    void testChangeThatKeepsSizeAndTimeIsNoticed();
    void testJournalBesideTheSourceIsNoticed();
    void testOpeningNotesWhatItHasRead();
    void testUnchangedFilesAreKnownUnread();
    void testYoungFilesHaveNoStamp();
    void testDamagedKeptFileIsMadeAnew_data();
    void testDamagedKeptFileIsMadeAnew();
    void testNoDamagedByteOfAKeptFileIsTrusted();
    void testOtherFormatIsMadeAnew();
    void testKeptFileOfAnotherSourceIsNotUsed();
    void testTwoCataloguesAreKeptSideBySide();
    void testNewVersionTakesTheOldOnesPlace();
    void testFolderThatCannotBeMade();
    void testWithoutFolderNothingIsKept();
    void testOpenDatabaseOutlivesAReplacedCache();
    void testSeveralThreadsAtOnce();
    void testLeftoversOfAnEndedProgramGo();

private:
    QString Source() const { return folder->filePath(QStringLiteral("catalog.db")); }
    QString CacheFolder() const { return folder->filePath(QStringLiteral("cache/deep")); }
    QStringList Kept() const
    {
        return QDir(CacheFolder()).entryList({QStringLiteral("*.db")}, QDir::Files);
    }
    QString NoteFile() const { return KeptFile() + QStringLiteral(".checked"); }
    bool IsKnownUnread(Moment now) const;
    void NoteChecked() const;
    QString KeptFile() const { return QDir(CacheFolder()).filePath(Kept().value(0)); }
    QString OpenedAnswer() const;

    QString programName;
    std::unique_ptr<QTemporaryDir> folder;
};

void TestCatalogueCache::init()
{
    folder = std::make_unique<QTemporaryDir>();
    WriteVersion2(Source(), {TableOf("one")});
}

QString TestCatalogueCache::OpenedAnswer() const
{
    SQLiteWrapper database(CacheFolder());
    return database.Open(Source()) ? Answer(database) : QStringLiteral("closed");
}

void TestCatalogueCache::testImportIsKeptAndUsedAgain()
{
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    QCOMPARE(Kept().size(), 1);
    const QDateTime past = QDateTime::currentDateTime().addDays(-2);
    SetModifiedTime(KeptFile(), past);
    const QDateTime before = ModifiedTime(KeptFile());
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    QCOMPARE(Kept().size(), 1);
    QCOMPARE(ModifiedTime(KeptFile()), before);
}

void TestCatalogueCache::testLargeImportIsKnownToAnotherProgram()
{
    // Qt's hashes may depend on a random number that each program draws for itself.
    const QByteArray content(3 << 20, 'x');
    WriteBytes(Source(), content);
    const CatalogueCache cache(CacheFolder());
    const QString kept = cache.Store(Source(), IdentityOf(Source()), content);
    QVERIFY(!kept.isEmpty());

    QProcess other;
    other.start(programName, {FindKeptCommand, Source(), CacheFolder()});
    QVERIFY2(other.waitForFinished(), qPrintable(other.errorString()));
    QCOMPARE(QString::fromUtf8(other.readAllStandardOutput()), kept);
}

void TestCatalogueCache::testKeptFileHoldsTheAnswers()
{
    // What is found is what was stored: the next answers come from the kept file.
    const QString other = folder->filePath(QStringLiteral("other.db"));
    WriteVersion3(other, "CREATE TABLE a (x TEXT); INSERT INTO a VALUES ('kept')");
    const CatalogueCache cache(CacheFolder());
    QVERIFY(!cache.Store(Source(), IdentityOf(Source()), BytesOf(other)).isEmpty());
    QCOMPARE(OpenedAnswer(), QStringLiteral("kept"));
}

void TestCatalogueCache::testChangedSourceIsReadAnew()
{
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    WriteVersion2(Source(), {TableOf("two and more")});
    QCOMPARE(OpenedAnswer(), QStringLiteral("two and more"));
}

void TestCatalogueCache::testChangeThatKeepsSizeAndTimeIsNoticed()
{
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    const QDateTime time = ModifiedTime(Source());
    const QByteArray before = BytesOf(Source());
    const QByteArray after = QByteArray(before).replace("one", "eno");
    QVERIFY(after != before);
    WriteBytes(Source(), after);
    SetModifiedTime(Source(), time);
    QCOMPARE(ModifiedTime(Source()), time);
    QCOMPARE(OpenedAnswer(), QStringLiteral("eno"));
}

void TestCatalogueCache::testJournalBesideTheSourceIsNoticed()
{
    // A journal without records, of a database that was as long as it is: the content stays, the
    // kept import must not be trusted all the same.
    const QByteArray without = IdentityOf(Source());
    QByteArray journal("\xd9\xd5\x05\xf9\x20\xa1\x63\xd6", 8);
    journal += QByteArray(8, '\0') + QByteArray("\0\0\0\x03", 4);
    WriteBytes(Source() + QStringLiteral("-journal"), journal);
    QVERIFY(IdentityOf(Source()) != without);
}

/// Whether the kept file would be opened at that time without being read through.
bool TestCatalogueCache::IsKnownUnread(Moment now) const
{
    const CatalogueCache cache(CacheFolder());
    return cache.FindChecked(Source(), cache.StampsOf(Source(), now)) == KeptFile();
}

void TestCatalogueCache::NoteChecked() const
{
    const CatalogueCache cache(CacheFolder());
    cache.NoteChecked(Source(), cache.StampsOf(Source(), Later()));
}

// The files have to grow older for that.
void TestCatalogueCache::testOpeningNotesWhatItHasRead()
{
    const auto becomesKnown = [this] {
        return OpenedAnswer() == QLatin1String("one") && IsKnownUnread(Clock::now());
    };
    QVERIFY(QTest::qWaitFor(becomesKnown, 20000));
    const QDateTime time = ModifiedTime(Source());
    WriteBytes(Source(), BytesOf(Source()).replace("one", "eno"));
    SetModifiedTime(Source(), time);
    QCOMPARE(OpenedAnswer(), QStringLiteral("eno"));
}

void TestCatalogueCache::testUnchangedFilesAreKnownUnread()
{
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    QVERIFY(!IsKnownUnread(Later()));
    NoteChecked();
    QVERIFY(IsKnownUnread(Later()));

    const QString journal = Source() + QStringLiteral("-journal");
    WriteBytes(journal, "new");
    QVERIFY(!IsKnownUnread(Later()));
    QVERIFY(QFile::remove(journal));
    QVERIFY(IsKnownUnread(Later()));

    const QByteArray note = BytesOf(NoteFile());
    for (const QByteArray &other : {QByteArray(), note.chopped(1), note + 'x',
                                    QByteArray(note).replace(note.size() - 1, 1, "x")}) {
        WriteBytes(NoteFile(), other);
        QVERIFY(!IsKnownUnread(Later()));
    }
    WriteBytes(NoteFile(), note);
    QVERIFY(IsKnownUnread(Later()));

    // The same bytes in another file.
    const QString keptFile = KeptFile();
    const QByteArray kept = BytesOf(keptFile);
    QVERIFY(QFile::rename(keptFile, folder->filePath(QStringLiteral("moved"))));
    WriteBytes(keptFile, kept);
    QVERIFY(!IsKnownUnread(Later()));
    NoteChecked();
    QVERIFY(IsKnownUnread(Later()));
    QVERIFY(BytesOf(NoteFile()) != note);
}

// Whatever the file system's clock takes for one moment, another change in it must be noticed.
void TestCatalogueCache::testYoungFilesHaveNoStamp()
{
    const QString file = folder->filePath(QStringLiteral("young"));
    QCOMPARE(StampOf(file), std::optional(QByteArray()));
    const Moment before = Clock::now();
    WriteBytes(file, "new");
    QVERIFY(!StampOf(file, before).has_value());
    QVERIFY(StampOf(file, Later()).has_value());
    QVERIFY(!StampOf(file, Later())->isEmpty());
}

void TestCatalogueCache::testDamagedKeptFileIsMadeAnew_data()
{
    QTest::addColumn<QByteArray>("kind");
    for (const char *kind :
         {"empty", "text", "cut", "without seal", "one bit in the middle", "one bit in the seal",
          "longer", "a version 3 file", "a version 2 file"})
        QTest::newRow(kind) << QByteArray(kind);
}

void TestCatalogueCache::testDamagedKeptFileIsMadeAnew()
{
    QFETCH(QByteArray, kind);
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    const QByteArray whole = BytesOf(KeptFile());
    QByteArray damaged = whole;
    if (kind == "empty") {
        damaged.clear();
    } else if (kind == "text") {
        damaged = "not a database";
    } else if (kind == "cut") {
        damaged.chop(damaged.size() / 2);
    } else if (kind == "without seal") {
        damaged.chop(1);
    } else if (kind == "one bit in the middle") {
        damaged[damaged.indexOf("one")] = 'O';
    } else if (kind == "one bit in the seal") {
        damaged.back() = static_cast<char>(damaged.back() ^ 1);
    } else if (kind == "longer") {
        damaged += QByteArray(4096, '\0');
    } else {
        const QString other = folder->filePath(QStringLiteral("other.db"));
        if (kind == "a version 3 file")
            WriteVersion3(other, "CREATE TABLE a (x TEXT); INSERT INTO a VALUES ('foreign')");
        else
            WriteVersion2(other, {TableOf("foreign")});
        damaged = BytesOf(other);
    }
    WriteBytes(KeptFile(), damaged);
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    QCOMPARE(BytesOf(KeptFile()), whole);
}

void TestCatalogueCache::testNoDamagedByteOfAKeptFileIsTrusted()
{
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    const CatalogueCache cache(CacheFolder());
    const QByteArray identity = IdentityOf(Source());
    const QByteArray whole = BytesOf(KeptFile());
    QFile file(KeptFile());
    QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    const auto put = [&file](qsizetype offset, char byte) {
        QVERIFY(file.seek(offset) && file.putChar(byte));
    };
    for (qsizetype i = 0; i < whole.size(); ++i) {
        put(i, static_cast<char>(whole[i] ^ (1 << i % 8)));
        QVERIFY2(cache.Find(Source(), identity).isEmpty(), qPrintable(QString::number(i)));
        put(i, whole[i]);
    }
    qInfo("%lld cases, none trusted", static_cast<long long>(whole.size()));
    QCOMPARE(cache.Find(Source(), identity), KeptFile());
}

void TestCatalogueCache::testOtherFormatIsMadeAnew()
{
    const QString other = folder->filePath(QStringLiteral("other.db"));
    WriteVersion3(other, "CREATE TABLE a (x TEXT); INSERT INTO a VALUES ('foreign')");
    QByteArray identity = IdentityOf(Source());
    identity[3] = static_cast<char>(identity[3] + 1); // the last byte of the format's number
    const CatalogueCache cache(CacheFolder());
    QVERIFY(!cache.Store(Source(), identity, BytesOf(other)).isEmpty());
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
}

void TestCatalogueCache::testKeptFileOfAnotherSourceIsNotUsed()
{
    const QString otherSource = folder->filePath(QStringLiteral("other.db"));
    WriteVersion2(otherSource, {TableOf("other")});
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    const QString kept = KeptFile();
    const QString otherCache = folder->filePath(QStringLiteral("otherCache"));
    QVERIFY(SQLiteWrapper(otherCache).Open(otherSource));
    const QStringList otherKept = QDir(otherCache).entryList({QStringLiteral("*.db")}, QDir::Files);
    QCOMPARE(otherKept.size(), 1);
    WriteBytes(kept, BytesOf(QDir(otherCache).filePath(otherKept.front())));
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
}

void TestCatalogueCache::testTwoCataloguesAreKeptSideBySide()
{
    const QString otherSource = folder->filePath(QStringLiteral("other.db"));
    WriteVersion2(otherSource, {TableOf("other")});
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    SQLiteWrapper other(CacheFolder());
    QVERIFY(other.Open(otherSource));
    QCOMPARE(Answer(other), QStringLiteral("other"));
    QCOMPARE(Kept().size(), 2);
}

void TestCatalogueCache::testNewVersionTakesTheOldOnesPlace()
{
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    WriteVersion2(Source(), {TableOf("two")});
    QCOMPARE(OpenedAnswer(), QStringLiteral("two"));
    QCOMPARE(Kept().size(), 1);
}

void TestCatalogueCache::testFolderThatCannotBeMade()
{
    WriteBytes(folder->filePath(QStringLiteral("cache")), "a file where the folder should be");
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("cannot be kept in .*cache")));
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
}

void TestCatalogueCache::testWithoutFolderNothingIsKept()
{
    SQLiteWrapper database{QString()};
    QVERIFY(database.Open(Source()));
    QCOMPARE(Answer(database), QStringLiteral("one"));
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("catalog.db")));
}

void TestCatalogueCache::testOpenDatabaseOutlivesAReplacedCache()
{
    SQLiteWrapper first(CacheFolder());
    QVERIFY(first.Open(Source()));
    WriteVersion2(Source(), {TableOf("two")});
    SQLiteWrapper second(CacheFolder());
    QVERIFY(second.Open(Source()));
    QCOMPARE(Answer(second), QStringLiteral("two"));
    QCOMPARE(Answer(first), QStringLiteral("one"));
}

void TestCatalogueCache::testSeveralThreadsAtOnce()
{
    std::atomic<int> goodAnswers = 0;
    const auto openAndAsk = [&] {
        for (int round = 0; round < 10; ++round) {
            if (OpenedAnswer() == QLatin1String("one"))
                ++goodAnswers;
            // As if another version had been kept meanwhile.
            QFile::remove(KeptFile());
        }
    };
    constexpr int threadCount = 4;
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int thread = 0; thread < threadCount; ++thread)
        threads.emplace_back(openAndAsk);
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(goodAnswers.load(), 40);
    // One good file is left in the end, and no half of one.
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    const CatalogueCache cache(CacheFolder());
    QCOMPARE(cache.Find(Source(), IdentityOf(Source())), KeptFile());
    QStringList files = QDir(CacheFolder()).entryList(QDir::Files | QDir::Hidden);
    files.removeOne(QFileInfo(NoteFile()).fileName());
    QCOMPARE(files, Kept());
    QCOMPARE(Kept().size(), 1);
}

void TestCatalogueCache::testLeftoversOfAnEndedProgramGo()
{
    QCOMPARE(OpenedAnswer(), QStringLiteral("one"));
    const QString oldLeftover = KeptFile() + QStringLiteral(".aBcDeF");
    const QString youngLeftover = KeptFile() + QStringLiteral(".gHiJkL");
    WriteBytes(oldLeftover, "half a write");
    WriteBytes(youngLeftover, "half a write");
    SetModifiedTime(oldLeftover, QDateTime::currentDateTime().addDays(-1));
    WriteVersion2(Source(), {TableOf("two")});
    QCOMPARE(OpenedAnswer(), QStringLiteral("two"));
    QVERIFY(!QFile::exists(oldLeftover));
    QVERIFY(QFile::exists(youngLeftover));
}

int main(int argc, char *argv[])
{
    if (argc == 4 && QString::fromLocal8Bit(argv[1]) == FindKeptCommand) {
        const QString source = QFile::decodeName(argv[2]);
        const CatalogueCache cache(QFile::decodeName(argv[3]));
        std::cout << cache.Find(source, IdentityOf(source)).toStdString();
        return 0;
    }
    TestCatalogueCache test(QFile::decodeName(argv[0]));
    return QTest::qExec(&test, argc, argv);
}

#include "TestCatalogueCache.moc"
