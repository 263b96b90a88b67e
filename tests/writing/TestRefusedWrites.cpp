#include "Writings.h"

#include "base/tests/SystemFaults.h"

#include <QFile>
#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

using namespace Tesk;

namespace {

using Kind = SystemFaults::Kind;

/// What a write came to under a fault.
struct Outcome
{
    bool hasFault = false;
    QString said;
};

Outcome WriteUnder(Writing &writing, Kind kind, int call, bool hasUnnamedFiles)
{
    SystemFaults faults(writing.Folder(), kind, call, hasUnnamedFiles);
    const QString said = writing.Write();
    return {faults.CallCount() >= call, said};
}

/// In a program of its own, which ends at that call.
Outcome CrashAt(Writing &writing, int call, bool hasUnnamedFiles)
{
    const pid_t child = fork();
    if (child == 0) {
        WriteUnder(writing, Kind::Crash, call, hasUnnamedFiles);
        _exit(0);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status))
        throw std::runtime_error("the program that is to end cannot be run");
    return {WEXITSTATUS(status) == SystemFaults::CrashStatus, {}};
}

/// Whether the lock's five lines are all there.
bool IsWholeLock(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) && file.readAll().count('\n') == 5;
}

} // namespace

/// Whatever call of the system fails while the program writes, and wherever the program ends: its
/// file is the old one or the new one, the program goes on, and says what failed.
class TestRefusedWrites : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testEveryCall_data();
    void testEveryCall();

private:
    static QString WrongAfter(Writing &writing, const Outcome &outcome, Kind kind,
                              const Writing &undisturbed, const QByteArray &before);
};

void TestRefusedWrites::testEveryCall_data()
{
    QTest::addColumn<int>("writing");
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("hasUnnamedFiles");
    const QList<std::pair<Kind, const char *>> faults{
        {Kind::DiskFull, "full disk"}, {Kind::Refused, "refused call"}, {Kind::Crash, "crash"}};
    for (size_t i = 0; i < KindsOfWriting().size(); ++i) {
        for (const auto &[kind, name] : faults) {
            for (const bool hasUnnamedFiles : {true, false})
                QTest::addRow("%s, %s%s", KindsOfWriting()[i].name, name,
                              hasUnnamedFiles ? "" : ", named files only")
                    << int(i) << int(kind) << hasUnnamedFiles;
        }
    }
}

/// Why this cannot be what a fault leaves; empty when it can.
QString TestRefusedWrites::WrongAfter(Writing &writing, const Outcome &outcome, Kind kind,
                                      const Writing &undisturbed, const QByteArray &before)
{
    const bool hasCrashed = kind == Kind::Crash;
    const QByteArray state = writing.State();
    const QByteArray after = undisturbed.State();
    if (state != before && state != after)
        return QStringLiteral("a file that is neither the old nor the new one");
    if (!hasCrashed && outcome.said.isEmpty() != (state == after))
        return QStringLiteral("what is said does not fit: \"%1\"").arg(outcome.said);
    if (!outcome.said.isEmpty() && !outcome.said.contains(writing.Folder()))
        return QStringLiteral("no file is named in \"%1\"").arg(outcome.said);

    // A program that ends may leave one file, which does not stand in the way of the next write.
    const qsizetype mostFiles = undisturbed.Files().size() + (hasCrashed ? 1 : 0);
    const QString lockEnding = QStringLiteral(".lock");
    QStringList files = writing.Files();
    files.removeIf([&](const QString &file) { return file.endsWith(lockEnding); });
    if (files.size() > mostFiles)
        return QStringLiteral("left over: ") + files.join(u' ');
    // The lock of a program that is gone is known as such when it says whole whose it is.
    writing.AgeFiles([&](const QString &file) {
        return !hasCrashed || !file.endsWith(lockEnding) || !IsWholeLock(file);
    });
    const QString said = writing.Write();
    if (writing.State() != after || !said.isEmpty())
        return QStringLiteral("the next write fails: \"%1\"").arg(said);
    if (writing.Files().size() > mostFiles)
        return QStringLiteral("left over by the next write: ") + writing.Files().join(u' ');
    return {};
}

void TestRefusedWrites::testEveryCall()
{
    QFETCH(int, writing);
    QFETCH(int, kind);
    QFETCH(bool, hasUnnamedFiles);
    const auto make = KindsOfWriting()[size_t(writing)].make;
    const auto fault = static_cast<Kind>(kind);
    const std::unique_ptr<Writing> undisturbed = make();
    const QByteArray before = undisturbed->State();
    QCOMPARE(undisturbed->Write(), QString());
    QVERIFY(before != undisturbed->State());

    int call = 1;
    for (;; ++call) {
        const std::unique_ptr<Writing> faulty = make();
        const Outcome outcome = fault == Kind::Crash
                                    ? CrashAt(*faulty, call, hasUnnamedFiles)
                                    : WriteUnder(*faulty, fault, call, hasUnnamedFiles);
        if (!outcome.hasFault)
            break;
        const QString wrong = WrongAfter(*faulty, outcome, fault, *undisturbed, before);
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("call %1: ").arg(call) + wrong));
    }
    qInfo("%d calls", call - 1);
    QVERIFY(call > 4);
}

QTEST_GUILESS_MAIN(TestRefusedWrites)
#include "TestRefusedWrites.moc"
