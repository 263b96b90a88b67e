#include "TinySources.h"

#include "sqlite2/Reader.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTest>

using namespace Tesk;

namespace {

struct Outcome
{
    int status = -1;
    QString output;
    QString errors;
};

Outcome Run(const QStringList &arguments)
{
    QProcess tool;
    // The tool needs no display and says so to nobody.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("XDG_RUNTIME_DIR"));
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral(CATALOG_TOOL), arguments);
    if (!tool.waitForFinished(60'000))
        qFatal("catalog-tool did not end");
    return {tool.exitCode(), QString::fromUtf8(tool.readAllStandardOutput()),
            QString::fromUtf8(tool.readAllStandardError())};
}

QMap<QString, QByteArray> Files(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        if (file.open(QIODevice::ReadOnly))
            files.insert(QDir(folder).relativeFilePath(file.fileName()), file.readAll());
    }
    return files;
}

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testBuildsQuietly()
    {
        const TinySources tiny;
        const QTemporaryDir folder;
        const Outcome outcome = Run({QStringLiteral("build"), tiny.Path(), folder.path()});
        QCOMPARE(outcome.errors, QString());
        QCOMPARE(outcome.output, QString());
        QCOMPARE(outcome.status, 0);
        QVERIFY(QFile::exists(folder.filePath(QStringLiteral("catalog.db"))));
    }

    void testEqualSourcesGiveEqualDirectories()
    {
        const TinySources tiny;
        const QTemporaryDir first;
        const QTemporaryDir second;
        Run({QStringLiteral("build"), tiny.Path(), first.path()});
        Run({QStringLiteral("build"), tiny.Path(), second.path()});
        const QMap<QString, QByteArray> files = Files(first.path());
        QVERIFY(files.size() > 20);
        QCOMPARE(files, Files(second.path()));
    }

    void testProblemsStopTheBuild()
    {
        const TinySources tiny;
        tiny.Replace(QStringLiteral("tables/reference_numbers.tsv"), "BH020", "BH 020");
        const QTemporaryDir folder;
        const Outcome outcome = Run({QStringLiteral("build"), tiny.Path(), folder.path()});
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.errors,
                 QStringLiteral("%1/tables/reference_numbers.tsv:2: no search finds the reference "
                                "number \"BH 020\"; write it without blanks\n"
                                "1 problem(s) in the catalogue's sources\n")
                     .arg(tiny.Path()));
        QVERIFY(Files(folder.path()).isEmpty());
    }

    void testCheckSaysNothingAboutGoodSources()
    {
        const TinySources tiny;
        const Outcome outcome = Run({QStringLiteral("check"), tiny.Path()});
        QCOMPARE(outcome.errors, QString());
        QCOMPARE(outcome.status, 0);
    }

    void testCheckReportsProblems()
    {
        const TinySources tiny;
        tiny.Remove(QStringLiteral("version"));
        const Outcome outcome = Run({QStringLiteral("check"), tiny.Path()});
        QCOMPARE(outcome.status, 1);
        QVERIFY(outcome.errors.startsWith(
            QStringLiteral("%1/version: the file is missing; add it\n").arg(tiny.Path())));
    }

    void testReportsMissingSources()
    {
        const Outcome outcome = Run({QStringLiteral("check"), QStringLiteral("/no/such/folder")});
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.errors,
                 QStringLiteral("catalog-tool: There is no folder \"/no/such/folder\". Name the "
                                "folder of a catalogue's sources.\n"));
    }

    void testGeneratesACatalogue()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("many.db"));
        const Outcome outcome =
            Run({QStringLiteral("generate"), file, QStringLiteral("--products"),
                 QStringLiteral("40"), QStringLiteral("--seed"), QStringLiteral("7")});
        QCOMPARE(outcome.errors, QString());
        QCOMPARE(outcome.status, 0);
        const Sqlite2::Reader reader(QFileInfo(file).filesystemFilePath());
        int count = 0;
        reader.ReadRows(*reader.FindTable("products_global"),
                        [&count](std::int32_t, const Sqlite2::Row &) { ++count; });
        QCOMPARE(count, 40);
    }

    void testAsksABuiltCatalogue()
    {
        const TinySources tiny;
        const QTemporaryDir folder;
        Run({QStringLiteral("build"), tiny.Path(), folder.path()});
        const Outcome outcome =
            Run({QStringLiteral("sql"), QStringLiteral("--json"),
                 folder.filePath(QStringLiteral("catalog.db")),
                 QStringLiteral("SELECT ID, name, form FROM products_localized WHERE lang='ge'")});
        QCOMPARE(outcome.errors, QString());
        QCOMPARE(outcome.status, 0);
        const QJsonArray expected{
            QJsonArray{QStringLiteral("ID"), QStringLiteral("name"), QStringLiteral("form")},
            QJsonArray{QStringLiteral("1"), QStringLiteral("Schere groß"), QStringLiteral("x")},
            QJsonArray{QStringLiteral("2"), QStringLiteral("Schere"), QStringLiteral("x")},
            QJsonArray{QStringLiteral("3"), QStringLiteral("Besteck"), QJsonValue::Null}};
        QCOMPARE(QJsonDocument::fromJson(outcome.output.toUtf8()).array(), expected);
    }

    void testReportsAFailingStatement()
    {
        const TinySources tiny;
        const QTemporaryDir folder;
        Run({QStringLiteral("build"), tiny.Path(), folder.path()});
        const Outcome outcome =
            Run({QStringLiteral("sql"), folder.filePath(QStringLiteral("catalog.db")),
                 QStringLiteral("SELECT ID FROM nowhere")});
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.output, QString());
        QVERIFY(outcome.errors.contains(QLatin1String("nowhere")));
    }

    void testUsageErrors_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing") << QStringList();
        QTest::newRow("unknown command") << QStringList{QStringLiteral("bulid")};
        QTest::newRow("build without folders") << QStringList{QStringLiteral("build")};
        QTest::newRow("generate without a number")
            << QStringList{QStringLiteral("generate"), QStringLiteral("/no/such/folder/a.db")};
        QTest::newRow("check with two folders")
            << QStringList{QStringLiteral("check"), QStringLiteral("a"), QStringLiteral("b")};
    }
    void testUsageErrors()
    {
        QFETCH(QStringList, arguments);
        const Outcome outcome = Run(arguments);
        QCOMPARE(outcome.status, 2);
        QCOMPARE(outcome.output, QString());
        QVERIFY(outcome.errors.startsWith(QLatin1String("catalog-tool: ")));
        QVERIFY(outcome.errors.contains(QLatin1String("catalog-tool build SOURCES APPDIR")));
    }

    void testHelpIsNoError()
    {
        const Outcome outcome = Run({QStringLiteral("--help")});
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.errors, QString());
        QVERIFY(outcome.output.contains(QLatin1String("catalog-tool check SOURCES")));
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "TestCommandLine.moc"
