#include "SqlCommand.h"
#include "UsageError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <memory>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace Tesk;

namespace {

/// Catches the standard output in a file for its lifetime.
class CaughtOutput final
{
public:
    explicit CaughtOutput(const QString &file)
        : fileName(file)
        , standard(dup(fileno(stdout)))
    {
        std::fflush(stdout);
        if (!std::freopen(QFile::encodeName(fileName).constData(), "w", stdout))
            qFatal("cannot catch the output");
    }
    ~CaughtOutput()
    {
        std::fflush(stdout);
        dup2(standard, fileno(stdout));
        close(standard);
    }

    CaughtOutput(const CaughtOutput &) = delete;
    CaughtOutput &operator=(const CaughtOutput &) = delete;

private:
    QString fileName;
    int standard;
};

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

class TestSqlCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testPrintsATable();
    void testPrintsJson();
    void testEmptyResult();
    void testFailingStatement();
    void testMissingFile();
    void testWrongArguments_data();
    void testWrongArguments();
    void testLeavesNothingBeside();

private:
    QByteArray Run(const QStringList &arguments, int &status) const;

    const QString sample = QStringLiteral(SAMPLES_DIR "/typing.db");
    QTemporaryDir folder;
};

QByteArray TestSqlCommand::Run(const QStringList &arguments, int &status) const
{
    const QString name = folder.filePath(Text("output"));
    {
        const CaughtOutput output(name);
        status = RunSql(arguments);
    }
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no output");
}

void TestSqlCommand::testPrintsATable()
{
    int status = -1;
    QCOMPARE(Run({sample, Text("select x.k, x.t from a x where x.k in (1, 6)")}, status),
             QByteArray("x.k  x.t\n---  ----\n1    007\n6    NULL\n"));
    QCOMPARE(status, 0);
}

void TestSqlCommand::testPrintsJson()
{
    for (const QStringList &arguments :
         {QStringList{Text("--json"), sample, Text("select k, f from a where k=5 or k=6")},
          QStringList{sample, Text("select k, f from a where k=5 or k=6"), Text("--json")}}) {
        int status = -1;
        QCOMPARE(Run(arguments, status),
                 QByteArray("[[\"k\",\"f\"],\n[\"5\",\"abc\"],\n[\"6\",null]]\n"));
        QCOMPARE(status, 0);
    }
}

void TestSqlCommand::testEmptyResult()
{
    int status = -1;
    QCOMPARE(Run({Text("--json"), sample, Text("select k from a where k=99")}, status),
             QByteArray("[]\n"));
    QCOMPARE(Run({sample, Text("select k from a where k=99")}, status), QByteArray());
    QCOMPARE(status, 0);
}

void TestSqlCommand::testFailingStatement()
{
    QVERIFY_THROWS_EXCEPTION(CatalogueError, RunSql({sample, Text("select * from nowhere")}));
    QVERIFY_THROWS_EXCEPTION(CatalogueError, RunSql({sample, Text("delete from a")}));
}

void TestSqlCommand::testMissingFile()
{
    QVERIFY_THROWS_EXCEPTION(CatalogueError,
                             RunSql({folder.filePath(Text("missing.db")), Text("select 1")}));
}

void TestSqlCommand::testWrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("no statement") << QStringList{sample};
    QTest::newRow("only an option") << QStringList{Text("--json")};
    QTest::newRow("too many") << QStringList{sample, Text("select 1"), Text("select 2")};
    QTest::newRow("unknown option") << QStringList{Text("--csv"), sample, Text("select 1")};
}

void TestSqlCommand::testWrongArguments()
{
    QFETCH(QStringList, arguments);
    QVERIFY_THROWS_EXCEPTION(UsageError, RunSql(arguments));
}

void TestSqlCommand::testLeavesNothingBeside()
{
    const QString own = folder.filePath(Text("own"));
    QVERIFY(QDir().mkpath(own));
    const QString copy = QDir(own).filePath(Text("catalog.db"));
    QVERIFY(QFile::copy(sample, copy));
    int status = -1;
    Run({copy, Text("select k from a")}, status);
    QCOMPARE(status, 0);
    QCOMPARE(QDir(own).entryList(QDir::Files | QDir::Hidden), QStringList(Text("catalog.db")));
}

QTEST_APPLESS_MAIN(TestSqlCommand)
#include "TestSqlCommand.moc"
