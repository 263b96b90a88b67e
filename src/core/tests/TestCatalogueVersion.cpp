#include "base/Errors.h"
#include "core/CatalogueVersion.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

class TestCatalogueVersion : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;

    QString Path() const { return folder->filePath(QStringLiteral("version")); }

private Q_SLOTS:
    void init() { folder = std::make_unique<QTemporaryDir>(); }

    void testIsTheFirstLine_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("version");
        QTest::newRow("CR LF") << QByteArray("1.5\r\n") << QStringLiteral("1.5");
        QTest::newRow("LF") << QByteArray("2.0\n") << QStringLiteral("2.0");
        QTest::newRow("no line end") << QByteArray("2.0") << QStringLiteral("2.0");
        QTest::newRow("two lines") << QByteArray("2.0 \r\n3.0\r\n") << QStringLiteral("2.0 ");
        QTest::newRow("code page") << QByteArray("2.0 f\xfcr") << QStringLiteral("2.0 für");
        QTest::newRow("empty line") << QByteArray("\r\n3.0\r\n") << QStringLiteral("–");
        QTest::newRow("empty file") << QByteArray() << QStringLiteral("–");
    }

    void testIsTheFirstLine()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, version);
        QFile file(Path());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        QCOMPARE(ReadCatalogueVersion(folder->path()), version);
    }

    void testUnreadableFileIsNamed_data()
    {
        QTest::addColumn<bool>("isFolder");
        QTest::newRow("missing") << false;
        QTest::newRow("a folder") << true;
    }

    void testUnreadableFileIsNamed()
    {
        QFETCH(const bool, isFolder);
        if (isFolder)
            QVERIFY(QDir().mkdir(Path()));
        try {
            ReadCatalogueVersion(folder->path());
            QFAIL("no error");
        } catch (const FileError &error) {
            QVERIFY2(error.Message().contains(Path()), qPrintable(error.Message()));
        }
    }
};

QTEST_APPLESS_MAIN(TestCatalogueVersion)
#include "TestCatalogueVersion.moc"
