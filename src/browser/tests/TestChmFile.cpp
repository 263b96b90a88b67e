#include "base/Errors.h"
#include "browser/ChmFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

namespace {

const QString Container = QStringLiteral(TEST_CONTAINER);

QByteArray ContentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

QByteArray Source(const QString &name)
{
    return ContentOf(QStringLiteral(TEST_DATA_DIR "/container/") + name);
}

} // namespace

class TestChmFile : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;
    const QStringList names = {
        QStringLiteral("Dokumente/plain.html"), QStringLiteral("Dokumente/schöne Seite.html"),
        QStringLiteral("Dokumente/style.css"), QStringLiteral("Grafiken/klein/arzt/dot.gif"),
        QStringLiteral("Grafiken/gross/line.svg")};

    QString Write(const QByteArray &bytes) const
    {
        QString name = folder.filePath(QStringLiteral("damaged.chm"));
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the test's file cannot be written");
        return name;
    }

private Q_SLOTS:
    void testReadsEveryMember_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : names)
            QTest::newRow(qUtf8Printable(name)) << name;
    }

    void testReadsEveryMember()
    {
        QFETCH(QString, name);
        const ChmFile file(Container);
        const std::optional<QByteArray> content = file.Read(u'/' + name);
        QVERIFY(content);
        QCOMPARE(*content, Source(name));
    }

    void testCaseDoesNotMatter()
    {
        const ChmFile file(Container);
        QCOMPARE(file.Read(QStringLiteral("/DOKUMENTE/SCHÖNE seite.HTML")),
                 Source(QStringLiteral("Dokumente/schöne Seite.html")));
    }

    void testMissingMemberIsNothing()
    {
        const ChmFile file(Container);
        QVERIFY(!file.Read(QStringLiteral("/Dokumente/missing.html")));
        QVERIFY(!file.Read(QStringLiteral("/Dokumente")));
        QVERIFY(!file.Read(QString()));
    }

    void testMissingFileIsReported()
    {
        QVERIFY_THROWS_EXCEPTION(FileError, ChmFile(QStringLiteral("/nowhere/resources.chm")));
    }

    void testForeignFileIsReported()
    {
        QVERIFY_THROWS_EXCEPTION(FileError,
                                 ChmFile(QStringLiteral(TEST_DATA_DIR "/container/resources.hhp")));
    }

    void testTruncatedFileGivesWholeMembersOrNone()
    {
        const QByteArray whole = ContentOf(Container);
        for (qsizetype length = 0; length < whole.size(); length += 61) {
            try {
                const ChmFile file(Write(whole.left(length)));
                for (const QString &name : names) {
                    const std::optional<QByteArray> content = file.Read(u'/' + name);
                    QVERIFY(!content || *content == Source(name));
                }
            } catch (const FileError &error) {
                QVERIFY(error.Message().contains(folder.path()));
            }
        }
    }

    void testDamagedFileIsReadOrReported()
    {
        const QByteArray whole = ContentOf(Container);
        const QString path = Write(whole);
        QFile damaged(path);
        QVERIFY(damaged.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        int reported = 0;
        for (const char damage : {'\0', '\xFF'}) {
            for (qsizetype at = 0; at < whole.size(); at += 3) {
                QVERIFY(damaged.seek(at) && damaged.putChar(damage));
                try {
                    const ChmFile file(path);
                    for (const QString &name : names)
                        file.Read(u'/' + name);
                } catch (const FileError &) {
                    ++reported;
                }
                QVERIFY(damaged.seek(at) && damaged.putChar(whole[at]));
            }
        }
        QVERIFY(reported > 0);
        QCOMPARE(ContentOf(path), whole);
    }

    void testDirectoryThatLeadsInCirclesIsReported()
    {
        QByteArray damaged = ContentOf(Container);
        const qsizetype leaf = damaged.indexOf("PMGL");
        QVERIFY(leaf > 0);
        // The first block names itself as the next one.
        damaged.replace(leaf + 0x10, 4, QByteArray(4, '\0'));
        QVERIFY_THROWS_EXCEPTION(FileError, ChmFile(Write(damaged)));
    }

    void testCompressionWithoutAWindowIsReported()
    {
        QByteArray damaged = ContentOf(Container);
        const qsizetype control = damaged.indexOf("LZXC");
        QVERIFY(control > 0);
        damaged.replace(control + 0x0C, 4, QByteArray(4, '\0'));
        QVERIFY_THROWS_EXCEPTION(FileError, ChmFile(Write(damaged)));
    }
};

QTEST_APPLESS_MAIN(TestChmFile)
#include "TestChmFile.moc"
