#include "ui/main/history/NavigationHistory.h"

namespace Tesk {

bool NavigationHistory::HasMoreEntries() const
{
    return !entries[static_cast<size_t>(Before(position))].isEmpty();
}

QString NavigationHistory::EntryOf(const QString &address)
{
    const qsizetype fragment = address.lastIndexOf(QLatin1Char('#'));
    return fragment < 0 ? address : address.left(fragment);
}

void NavigationHistory::PushEntry(const QString &entry)
{
    const QString page = EntryOf(entry);
    // A page reached by going back completes like any other: recording it anew would undo the step.
    if (page == Newest() || page == lastPopped)
        return;
    position = static_cast<qint16>((position + 1) % Size);
    entries[static_cast<size_t>(position)] = page;
}

QString NavigationHistory::PopEntry()
{
    entries[static_cast<size_t>(position)].clear();
    position = Before(position);
    lastPopped = Newest();
    return lastPopped;
}

qint16 NavigationHistory::Before(qint16 position)
{
    return static_cast<qint16>(position == 0 ? Size - 1 : position - 1);
}

} // namespace Tesk
