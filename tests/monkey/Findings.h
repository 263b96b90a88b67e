#pragma once

#include <QString>
#include <QStringList>

#include <deque>
#include <optional>

namespace Tesk {

/// What the monkey has done last, and what was wrong with it.
class Findings final
{
public:
    static constexpr size_t MostSteps = 30;

    /// A new action begins.
    void Begin(int number, const QString &action);
    /// Something within the action, such as an answer to its dialog.
    void Note(const QString &step);

    /// What the action was looking for was there, unless `what` is empty.
    void NoteFound(const QString &what);
    /// Whether the action has looked for something, and whether it was there.
    std::optional<bool> HasFound() const { return hasFound; }

    /// The last actions with their notes, oldest first.
    QStringList LastActions() const;

    void Fail(const QString &what) { failures.append(what); }
    const QStringList &Failures() const { return failures; }

    /// What is being done must make the program name a fault, once.
    void ExpectError() { ++expectedErrors; }
    /// The program names a fault in a message box.
    void TakeError(const QString &message);
    /// Everything that was expected must have come by now.
    void EndErrors();

    /// From now on each step is printed when it is taken, so that a crash leaves the steps behind.
    void PrintSteps() { isPrinting = true; }

private:
    std::deque<QString> actions;
    QStringList failures;
    std::optional<bool> hasFound;
    int expectedErrors = 0;
    bool isPrinting = false;
};

} // namespace Tesk
