#include "base/Errors.h"
#include "build/ApplicationDirectory.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

namespace {

/// A folder for one test, with blanks and an umlaut in its path.
class Folder final
{
public:
    QString Path() const { return folder.filePath(QStringLiteral("Kätalog der Firma")); }
    QString Path(const char *file) const { return Path() + QLatin1Char('/') + QLatin1String(file); }

    QByteArray Read(const char *file) const
    {
        QFile source(Path(file));
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("missing");
    }

    QStringList Entries() const
    {
        return QDir(Path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                      QDir::Name);
    }

private:
    QTemporaryDir folder;
};

void Build(const Folder &folder, const QMap<QString, QByteArray> &files)
{
    ApplicationDirectory directory(folder.Path());
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        directory.Write(file.key(), file.value());
    directory.Finish();
}

} // namespace

class TestApplicationDirectory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testMakesTheFolderAndItsParts()
    {
        const Folder folder;
        Build(folder,
              {{QStringLiteral("catalog.db"), "db"}, {QStringLiteral("content/img/a.gif"), "gif"}});
        QCOMPARE(folder.Entries(),
                 (QStringList{QStringLiteral("catalog.db"), QStringLiteral("content")}));
        QCOMPARE(folder.Read("catalog.db"), QByteArray("db"));
        QCOMPARE(folder.Read("content/img/a.gif"), QByteArray("gif"));
    }

    void testReplacesPartsWhole()
    {
        const Folder folder;
        Build(folder, {{QStringLiteral("catalog.db"), "db 1"},
                       {QStringLiteral("content/old.html"), "old"}});
        Build(folder, {{QStringLiteral("catalog.db"), "db 2"},
                       {QStringLiteral("content/new.html"), "new"}});
        QCOMPARE(folder.Read("catalog.db"), QByteArray("db 2"));
        QCOMPARE(folder.Read("content/new.html"), QByteArray("new"));
        QVERIFY(!QFile::exists(folder.Path("content/old.html")));
    }

    void testRemovesPartsThatTheCatalogueNoLongerHas()
    {
        const Folder folder;
        Build(folder,
              {{QStringLiteral("PDF/a.pdf"), "a"}, {QStringLiteral("price_list.txt"), "p"}});
        Build(folder, {{QStringLiteral("catalog.db"), "db"}});
        QCOMPARE(folder.Entries(), QStringList{QStringLiteral("catalog.db")});
    }

    void testRemovesTheJournalOfAnOldDatabase()
    {
        const Folder folder;
        Build(folder, {{QStringLiteral("catalog.db-journal"), "old"}});
        Build(folder, {{QStringLiteral("catalog.db"), "db"}});
        QVERIFY(!QFile::exists(folder.Path("catalog.db-journal")));
    }

    void testLeavesWhatIsNotTheCatalogues()
    {
        const Folder folder;
        QVERIFY(QDir().mkpath(folder.Path()));
        QFile program(folder.Path("tesk-catalog"));
        QVERIFY(program.open(QIODevice::WriteOnly) && program.write("program") == 7);
        program.close();
        Build(folder, {{QStringLiteral("catalog.db"), "db"}});
        QCOMPARE(folder.Read("tesk-catalog"), QByteArray("program"));
    }

    void testAbandonedBuildChangesNothing()
    {
        const Folder folder;
        Build(folder, {{QStringLiteral("catalog.db"), "db 1"}});
        {
            ApplicationDirectory directory(folder.Path());
            directory.Write(QStringLiteral("catalog.db"), "db 2");
        }
        QCOMPARE(folder.Read("catalog.db"), QByteArray("db 1"));
        QCOMPARE(folder.Entries(), QStringList{QStringLiteral("catalog.db")});
    }

    void testClearsTheRestOfAKilledBuild()
    {
        const Folder folder;
        QVERIFY(QDir().mkpath(folder.Path(".catalog-tool/content")));
        Build(folder, {{QStringLiteral("catalog.db"), "db"}});
        QCOMPARE(folder.Entries(), QStringList{QStringLiteral("catalog.db")});
    }

    void testRefusesASecondBuildAtTheSameTime()
    {
        const Folder folder;
        ApplicationDirectory first(folder.Path());
        QVERIFY_THROWS_EXCEPTION(FileError, ApplicationDirectory(folder.Path()));
        first.Write(QStringLiteral("version"), "1");
        first.Finish();
        QCOMPARE(folder.Read("version"), QByteArray("1"));
    }

    void testReportsAFileInPlaceOfTheFolder()
    {
        const Folder folder;
        Build(folder, {{QStringLiteral("version"), "1"}});
        QVERIFY_THROWS_EXCEPTION(FileError, ApplicationDirectory(folder.Path("version")));
    }
};

QTEST_GUILESS_MAIN(TestApplicationDirectory)
#include "TestApplicationDirectory.moc"
