#include "base/Errors.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/file/tests/CartFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

using namespace Tesk;
using namespace Tesk::CartFiles;

namespace {

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

#ifdef Q_OS_UNIX
/// While it lives, no file of this process grows beyond the limit: writing on fails as it does on a
/// full disk.
class FileSizeLimit final
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : oldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &oldLimit);
        const rlimit limit{bytes, oldLimit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &oldLimit);
        std::signal(SIGXFSZ, oldHandler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit oldLimit{};
    void (*oldHandler)(int);
};
#endif

} // namespace

/// A cart file is written whole or not at all.
class TestCartFileSafety : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testFullDiskLeavesTheOldFile_data();
    void testFullDiskLeavesTheOldFile();
    void testKilledProgramLeavesTheOldFile();
    void testFailedSaveLeavesNoNewFile();
    void testFolderOfThatNameIsAnError();
    void testMissingFolderIsAnError();

private:
    QString SaveError() const;

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
    clsShoppingCart cart;
};

void TestCartFileSafety::init()
{
    folder = std::make_unique<QTemporaryDir>();
    path = folder->filePath(Text("order.csv"));
    cart.Clear();
    for (int i = 0; i < 5000; ++i)
        cart.AddItem(MakeItem(QString::number(i), Text("AB 1"), Text("Clamp"), 1));
}

/// The message of the error that saving ends in; empty without one.
QString TestCartFileSafety::SaveError() const
{
    try {
        ShoppingCartFile::Save(cart, path);
    } catch (const FileError &error) {
        return error.Message();
    }
    return QString();
}

void TestCartFileSafety::testFullDiskLeavesTheOldFile_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("none") << 0;
    QTest::newRow("a little") << 4096;
    QTest::newRow("one byte too few") << int(cart.Serialize().size() + 1);
}

void TestCartFileSafety::testFullDiskLeavesTheOldFile()
{
#ifdef Q_OS_UNIX
    QFETCH(const int, room);
    WriteBytes(path, "9;ZZ 9;Old;1;\r\n\r\n\r\n");
    QString message;
    {
        const FileSizeLimit limit(static_cast<rlim_t>(room));
        message = SaveError();
    }
    QVERIFY(message.contains(QDir::toNativeSeparators(path)));
    QCOMPARE(BytesOf(path), QByteArray("9;ZZ 9;Old;1;\r\n\r\n\r\n"));
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList(Text("order.csv")));
#else
    QSKIP("The system has no limit for a file's size.");
#endif
}

void TestCartFileSafety::testKilledProgramLeavesTheOldFile()
{
#ifdef Q_OS_UNIX
    WriteBytes(path, "9;ZZ 9;Old;1;\r\n\r\n\r\n");
    const pid_t child = fork();
    if (child == 0) {
        // The system kills the child in the middle of its writing.
        const rlimit limit{8192, 8192};
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        setrlimit(RLIMIT_FSIZE, &limit);
        ShoppingCartFile::Save(cart, path);
        _exit(0);
    }
    QVERIFY(child > 0);
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGXFSZ);
    QCOMPARE(BytesOf(path), QByteArray("9;ZZ 9;Old;1;\r\n\r\n\r\n"));
#else
    QSKIP("The system has no limit for a file's size.");
#endif
}

void TestCartFileSafety::testFailedSaveLeavesNoNewFile()
{
#ifdef Q_OS_UNIX
    {
        const FileSizeLimit limit(4096);
        QVERIFY(!SaveError().isEmpty());
    }
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList());
#else
    QSKIP("The system has no limit for a file's size.");
#endif
}

void TestCartFileSafety::testFolderOfThatNameIsAnError()
{
    QVERIFY(QDir().mkdir(path));
    QVERIFY(SaveError().contains(QDir::toNativeSeparators(path)));
}

void TestCartFileSafety::testMissingFolderIsAnError()
{
    path = folder->filePath(Text("none/order.csv"));
    QVERIFY(SaveError().contains(QDir::toNativeSeparators(path)));
}

QTEST_APPLESS_MAIN(TestCartFileSafety)
#include "TestCartFileSafety.moc"
