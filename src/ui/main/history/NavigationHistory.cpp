#include "ui/main/history/NavigationHistory.h"

namespace Tesk {

bool NavigationHistory::HasMoreEntries() const
{
    return !entries[static_cast<size_t>(Before(position))].isEmpty();
}

void NavigationHistory::PushEntry(const QString &entry)
{
    const qsizetype fragment = entry.lastIndexOf(QLatin1Char('#'));
    const QString page = fragment < 0 ? entry : entry.left(fragment);

    // A page reached by going back completes like any other: recording it anew would undo the step.
    if (page == entries[static_cast<size_t>(position)] || page == lastPopped)
        return;
    position = static_cast<qint16>((position + 1) % Size);
    entries[static_cast<size_t>(position)] = page;
}

QString NavigationHistory::PopEntry()
{
    entries[static_cast<size_t>(position)].clear();
    position = Before(position);
    lastPopped = entries[static_cast<size_t>(position)];
    return lastPopped;
}

qint16 NavigationHistory::Before(qint16 position)
{
    return static_cast<qint16>(position == 0 ? Size - 1 : position - 1);
}

} // namespace Tesk
