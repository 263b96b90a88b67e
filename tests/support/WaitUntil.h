#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace Tesk {

/// Longest wait of a test for anything, in milliseconds.
inline constexpr int WaitLimit = 20000;

/// Runs the event loop until the condition holds; false when it does not within `limit`
/// milliseconds. Qt Test's own waiting sleeps between looks at the event queue, which slows down
/// the browser engine's long chains of events many times over.
template <typename Condition>
bool WaitUntil(Condition condition, int limit = WaitLimit)
{
    constexpr int interval = 5; // milliseconds
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QEventLoop loop;
        QTimer::singleShot(interval, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

} // namespace Tesk
