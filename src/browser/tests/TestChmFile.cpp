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

private Q_SLOTS:
    void testReadsEveryMember_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name :
             {"Dokumente/plain.html", "Dokumente/schöne Seite.html", "Dokumente/style.css",
              "Grafiken/klein/arzt/dot.gif", "Grafiken/gross/line.svg"}) {
            QTest::newRow(name) << QString::fromUtf8(name);
        }
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
        QVERIFY_EXCEPTION_THROWN(ChmFile(QStringLiteral("/nowhere/resources.chm")), FileError);
    }

    void testForeignFileIsReported()
    {
        QVERIFY_EXCEPTION_THROWN(ChmFile(QStringLiteral(TEST_DATA_DIR "/container/resources.hhp")),
                                 FileError);
    }
};

QTEST_APPLESS_MAIN(TestChmFile)
#include "TestChmFile.moc"
