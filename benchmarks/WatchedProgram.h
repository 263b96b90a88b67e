#pragma once

#include <QByteArray>
#include <QProcess>

namespace Tesk {

/// A program that is started, watched by what it writes on the terminal, and ended. A program that
/// does not write what it should ends the benchmark.
class WatchedProgram final
{
public:
    explicit WatchedProgram(
        const QString &file, const QStringList &arguments = {},
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());
    ~WatchedProgram();

    WatchedProgram(const WatchedProgram &) = delete;
    WatchedProgram &operator=(const WatchedProgram &) = delete;

    /// Milliseconds from the start, or from the last Tell(), to the next line with this text.
    double WaitFor(const QByteArray &text);
    /// Writes a line to the program.
    void Tell(const QByteArray &line);

    qint64 Id() const { return process.processId(); }

private:
    QProcess process;
    double begin = 0;
};

} // namespace Tesk
