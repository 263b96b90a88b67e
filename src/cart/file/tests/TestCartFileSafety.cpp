#include "base/Errors.h"
#include "base/tests/FileSizeLimit.h"
#include "base/tests/TranslatedErrors.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/file/tests/CartFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#ifdef Q_OS_UNIX
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace Tesk;
using namespace Tesk::CartFiles;

namespace {

constexpr int LineCount = 5000;

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

/// A cart file is written whole or not at all.
class TestCartFileSafety : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testFullDiskLeavesTheOldFile_data();
    void testFullDiskLeavesTheOldFile();
    void testFullDiskLeavesTheOldFileOfASmallCart();
    void testKilledProgramLeavesTheOldFile();
    void testFailedSaveLeavesNoNewFile();
    void testFolderOfThatNameIsAnError();
    void testMissingFolderIsAnError();

private:
    void FillCart(int count);
    QString SaveError() const;

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
    clsShoppingCart cart;
};

void TestCartFileSafety::init()
{
    folder = std::make_unique<QTemporaryDir>();
    path = folder->filePath(Text("order.csv"));
    FillCart(LineCount);
}

void TestCartFileSafety::FillCart(int count)
{
    cart.Clear();
    for (int i = 0; i < count; ++i)
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
    // The cart of init(), which has not been filled yet, and the line that ends the file.
    FillCart(LineCount);
    const int size = int(cart.Serialize().size()) + 2;
    QVERIFY(size > 4096);
    QTest::newRow("one byte too few") << size - 1;
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

// A cart of some lines fits into the buffer between the program and the disk.
void TestCartFileSafety::testFullDiskLeavesTheOldFileOfASmallCart()
{
#ifdef Q_OS_UNIX
    const QByteArray old("9;ZZ 9;Old;1;\r\n\r\n\r\n");
    for (int count = 1; count <= 30; ++count) {
        FillCart(count);
        const int size = int(cart.Serialize().size()) + 2;
        for (const int room : {0, size - 1}) {
            WriteBytes(path, old);
            QString message;
            {
                const FileSizeLimit limit(static_cast<rlim_t>(room));
                message = SaveError();
            }
            const QByteArray place = QByteArray::number(count) + " lines, " +
                                     QByteArray::number(room) + " bytes of room";
            QVERIFY2(message.contains(QDir::toNativeSeparators(path)), place.constData());
            QVERIFY2(BytesOf(path) == old, place.constData());
        }
        const FileSizeLimit limit(static_cast<rlim_t>(size));
        QCOMPARE(SaveError(), QString());
        QCOMPARE(BytesOf(path).size(), size);
    }
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
    QVERIFY(KeyAndValuesOfError([this] {
                ShoppingCartFile::Save(cart, path);
            }).startsWith(Text("errorCartSave|") + QDir::toNativeSeparators(path) + u'|'));
}

void TestCartFileSafety::testMissingFolderIsAnError()
{
    path = folder->filePath(Text("none/order.csv"));
    QVERIFY(SaveError().contains(QDir::toNativeSeparators(path)));
}

QTEST_APPLESS_MAIN(TestCartFileSafety)
#include "TestCartFileSafety.moc"
