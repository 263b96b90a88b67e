#include "TinySources.h"

#include "base/Errors.h"
#include "build/ContainerBuilder.h"
#include "build/ContainerCorrection.h"
#include "build/ContainerReader.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"

#include <QTest>

using namespace Tesk;

namespace {

QByteArray BytesOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Compiles the container of a folder of sources into a file that lives as long as this.
class BuiltContainer final
{
public:
    explicit BuiltContainer(const TinySources &tiny)
    {
        Problems problems;
        BuildContainer(CatalogueSources(tiny.Path(), problems), FileName());
    }

    QString FileName() const { return folder.filePath(QStringLiteral("resources.chm")); }
    ContainerReader Reader() const { return ContainerReader(FileName()); }

private:
    QTemporaryDir folder;
};

} // namespace

class TestContainer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testHoldsDocumentsAsTheyAre()
    {
        const TinySources tiny;
        const BuiltContainer built(tiny);
        QCOMPARE(built.Reader().Read(QStringLiteral("/Dokumente/welcome_ge.html")),
                 tiny.Read(QStringLiteral("documents/welcome_ge.html")));
        QCOMPARE(built.Reader().Read(QStringLiteral("/Dokumente/nothing.html")), std::nullopt);
    }

    void testHoldsDrawingsSmallAndLarge()
    {
        const TinySources tiny;
        const BuiltContainer built(tiny);
        const auto read = [&](const char *path) {
            return built.Reader().Read(QString::fromLatin1(path)).value_or(QByteArray());
        };
        const QByteArray rest = " xmlns=\"http://www.w3.org/2000/svg\" viewBox=";
        QVERIFY(read("/Grafiken/klein/scissors/Straight.svg")
                    .contains("<svg width=\"160\" height=\"40\"" + rest));
        QVERIFY(read("/Grafiken/gross/scissors/Straight.svg")
                    .contains("<svg width=\"320\" height=\"80\"" + rest));
        QVERIFY(read("/Grafiken/klein/scissors/tip.svg")
                    .contains("<svg width=\"100\" height=\"50\"" + rest));
        QVERIFY(read("/Grafiken/gross/scissors/tip.svg")
                    .contains("<svg width=\"100\" height=\"50\"" + rest));
    }

    void testHoldsReadyPicturesAsTheyAre()
    {
        const TinySources tiny;
        const BuiltContainer built(tiny);
        QCOMPARE(built.Reader().Read(QStringLiteral("/Grafiken/klein/photos/photo.jpg")),
                 QByteArray("small photo"));
        QCOMPARE(built.Reader().Read(QStringLiteral("/Grafiken/gross/photos/photo.jpg")),
                 QByteArray("large photo"));
    }

    void testKeepsTheCaseOfNames()
    {
        const TinySources tiny;
        const QStringList members = BuiltContainer(tiny).Reader().Members();
        QVERIFY(members.contains(QStringLiteral("/Dokumente/Extra.html")));
        QVERIFY(members.contains(QStringLiteral("/Grafiken/klein/scissors/Straight.svg")));
    }

    void testListsEveryMemberOfALargeContainer()
    {
        const TinySources tiny;
        for (int i = 0; i < 600; ++i)
            tiny.Write(QStringLiteral("documents/manuals/A page of number_%1.html")
                           .arg(i)
                           .replace(QLatin1Char(' '), QLatin1Char('-')),
                       QByteArray::number(i));
        const BuiltContainer built(tiny);
        const ContainerReader reader = built.Reader();
        const QStringList members = reader.Members();
        for (int i = 0; i < 600; ++i) {
            const QString path =
                QStringLiteral("/Dokumente/manuals/A-page-of-number_%1.html").arg(i);
            QVERIFY2(members.contains(path), qPrintable(path));
            QCOMPARE(reader.Read(path), QByteArray::number(i));
        }
    }

    void testHoldsEmptyAndLargeFiles()
    {
        const TinySources tiny;
        QByteArray large(300'000, ' ');
        for (qsizetype i = 0; i < large.size(); i += 7)
            large[i] = static_cast<char>(i * i / 11);
        tiny.Write(QStringLiteral("documents/empty.txt"), "");
        tiny.Write(QStringLiteral("documents/large.bin"), large);
        const BuiltContainer built(tiny);
        QCOMPARE(built.Reader().Read(QStringLiteral("/Dokumente/empty.txt")), QByteArray());
        QCOMPARE(built.Reader().Read(QStringLiteral("/Dokumente/large.bin")), large);
    }

    void testSaysWhatToInstallWithoutTheCompiler()
    {
        const TinySources tiny;
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", tiny.Path().toLocal8Bit());
        QString message;
        try {
            const BuiltContainer built(tiny);
        } catch (const CatalogueError &error) {
            message = error.Message();
        }
        qputenv("PATH", path);
        QCOMPARE(message, QStringLiteral("chmcmd is missing: install fp-utils"));
    }

    void testReportsWhatTheCompilerComplainsOf()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("bin/chmcmd"), "#!/bin/sh\necho 'no room left' >&2\nexit 3\n");
        QFile(tiny.Path(QStringLiteral("bin/chmcmd")))
            .setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", tiny.Path(QStringLiteral("bin")).toLocal8Bit() + ':' + path);
        QString message;
        try {
            const BuiltContainer built(tiny);
        } catch (const CatalogueError &error) {
            message = error.Message();
        }
        qputenv("PATH", path);
        QCOMPARE(message, QStringLiteral("chmcmd could not compile the container: no room left"));
    }

    void testHoldsNoTimeOfCompiling()
    {
        const TinySources tiny;
        const BuiltContainer built(tiny);
        const QByteArray container = BytesOf(built.FileName());
        const QByteArray system = built.Reader().Read(QStringLiteral("/#SYSTEM")).value();
        // The record 10, 4 bytes long, behind the version.
        const qsizetype record = system.indexOf(QByteArray::fromHex("0a000400"), 4);
        QVERIFY(record > 0);
        QCOMPARE(system.mid(record + 4, 4), QByteArray(4, '\0'));
        QCOMPARE(container.mid(0x10, 4), QByteArray(4, '\0'));

        QByteArray dated = container;
        dated.replace(0x10, 4, "time");
        const QByteArray datedSystem = QByteArray(system).replace(record + 4, 4, "time");
        dated.replace(container.indexOf(system), system.size(), datedSystem);
        QVERIFY(dated != container);
        CorrectContainer(dated, datedSystem);
        QCOMPARE(dated, container);
    }

    void testCorrectionLeavesOtherFilesAlone()
    {
        for (const QByteArray &bytes :
             {QByteArray(), QByteArray("ITSF"), QByteArray(0x60, '\xFF'), QByteArray(500, '\0')}) {
            QByteArray corrected = bytes;
            CorrectContainer(corrected, "#SYSTEM");
            QCOMPARE(corrected.size(), bytes.size());
        }
    }

    void testRefusesAFileThatIsNoContainer()
    {
        const TinySources tiny;
        QVERIFY_THROWS_EXCEPTION(FileError, ContainerReader(tiny.Path(QStringLiteral("version"))));
    }
};

QTEST_GUILESS_MAIN(TestContainer)
#include "TestContainer.moc"
