#include "base/Errors.h"
#include "base/TextLines.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

namespace {

const QString Advice = QStringLiteral("Try again.");

} // namespace

class TestTextLines : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

    QString Write(const QByteArray &bytes) const
    {
        QString name = folder.filePath(QStringLiteral("lines.txt"));
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the test's file cannot be written");
        return name;
    }

private Q_SLOTS:
    void testSplitsIntoLines_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("lines");
        const QString a = QStringLiteral("a");
        const QString b = QStringLiteral("b");
        QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << QStringList{a, b};
        QTest::newRow("LF") << QByteArray("a\nb\n") << QStringList{a, b};
        QTest::newRow("no end at the last line") << QByteArray("a\r\nb") << QStringList{a, b};
        QTest::newRow("empty line between") << QByteArray("a\r\n\r\nb") << QStringList{a, {}, b};
        QTest::newRow("one empty line") << QByteArray("\r\n") << QStringList{QString()};
        QTest::newRow("blanks stay")
            << QByteArray(" a \t\r\n") << QStringList{QStringLiteral(" a \t")};
        QTest::newRow("code page")
            << QByteArray("\x9C\xDF\r\n") << QStringList{QStringLiteral(u"\u0153\u00DF")};
    }

    void testSplitsIntoLines()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, lines);
        QCOMPARE(ReadTextLines(Write(bytes), Advice), lines);
    }

    void testEmptyFileIsAnError()
    {
        QVERIFY_THROWS_EXCEPTION(FileError, ReadTextLines(Write(QByteArray()), Advice));
    }

    void testFolderIsAnError()
    {
        QVERIFY_THROWS_EXCEPTION(FileError, ReadTextLines(folder.path(), Advice));
    }

    void testMissingFileIsNamedWithTheAdvice()
    {
        try {
            ReadTextLines(folder.filePath(QStringLiteral("missing.txt")), Advice);
            QFAIL("no error");
        } catch (const FileError &error) {
            QVERIFY(error.Message().contains(QStringLiteral("missing.txt")));
            QVERIFY(error.Message().endsWith(Advice));
        }
    }
};

QTEST_APPLESS_MAIN(TestTextLines)
#include "TestTextLines.moc"
