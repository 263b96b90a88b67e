#include "Findings.h"

#include <cstdio>

namespace Tesk {

void Findings::Begin(int number, const QString &action)
{
    hasFound.reset();
    actions.push_back(QStringLiteral("%1: %2").arg(number).arg(action));
    if (actions.size() > MostSteps)
        actions.pop_front();
    if (isPrinting)
        std::printf("%s\n", qPrintable(actions.back()));
}

void Findings::Note(const QString &step)
{
    if (!actions.empty())
        actions.back() += QLatin1String(" | ") + step;
    if (isPrinting)
        std::printf("    %s\n", qPrintable(step));
}

void Findings::NoteFound(const QString &what)
{
    hasFound = hasFound.value_or(false) || !what.isEmpty();
    Note(what);
}

QStringList Findings::LastActions() const
{
    return QStringList(actions.begin(), actions.end());
}

void Findings::TakeError(const QString &message)
{
    if (--expectedErrors < 0)
        Fail(QStringLiteral("an error that nothing caught: ") + message);
}

void Findings::EndErrors()
{
    if (expectedErrors > 0)
        Fail(QStringLiteral("a fault that the program did not name"));
    expectedErrors = 0;
}

} // namespace Tesk
