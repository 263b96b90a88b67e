#pragma once

#include <QList>
#include <QtGlobal>

/// A process and all that it has started.
namespace Tesk::ProcessTree {

QList<qint64> Of(qint64 process);

/// False too for one that has ended and waits for its parent to notice.
bool IsRunning(qint64 process);

/// The memory of all of them in megabytes, of which each has its share of what several use (PSS).
double Memory(qint64 process);
/// The same as soon as it stays as it is.
double SettledMemory(qint64 process);

} // namespace Tesk::ProcessTree
