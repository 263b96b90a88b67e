#include "WatchedProgram.h"

#include "Clock.h"
#include "ProcessTree.h"

#include <csignal>
#include <thread>

namespace Tesk {

namespace {

constexpr int LongestWait = 60000; // milliseconds

} // namespace

WatchedProgram::WatchedProgram(const QString &file, const QStringList &arguments,
                               const QProcessEnvironment &environment)
{
    process.setProgram(file);
    process.setArguments(arguments);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    begin = Clock::Now();
    process.start();
    if (!process.waitForStarted())
        qFatal("%s cannot be started: %s", qPrintable(file), qPrintable(process.errorString()));
}

// The next measurement is to have the machine to itself: so all that was started must have gone.
WatchedProgram::~WatchedProgram()
{
    const QList<qint64> tree = ProcessTree::Of(Id());
    process.kill();
    process.waitForFinished();
    for (const qint64 id : tree) {
        while (ProcessTree::IsRunning(id)) {
            ::kill(static_cast<pid_t>(id), SIGKILL);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
}

double WatchedProgram::WaitFor(const QByteArray &text)
{
    QByteArray seen;
    while (true) {
        while (process.canReadLine()) {
            const QByteArray line = process.readLine();
            if (line.contains(text))
                return Clock::Now() - begin;
            seen += line;
        }
        if (!process.waitForReadyRead(LongestWait))
            qFatal("%s does not write \"%s\", but:\n%s", qPrintable(process.program()),
                   text.constData(), seen.constData());
    }
}

void WatchedProgram::Tell(const QByteArray &line)
{
    begin = Clock::Now();
    process.write(line + '\n');
    process.waitForBytesWritten();
}

} // namespace Tesk
