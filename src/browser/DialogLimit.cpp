#include "browser/DialogLimit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace Tesk {
namespace {

/// A key held down is pressed once.
bool IsPress(const QEvent &event)
{
    return event.type() == QEvent::MouseButtonPress ||
           (event.type() == QEvent::KeyPress &&
            !static_cast<const QKeyEvent &>(event).isAutoRepeat());
}

} // namespace

DialogLimit::DialogLimit(QWidget &area)
    : area(&area)
{
    // The widget that gets the events is the engine's own and changes with its process.
    qApp->installEventFilter(this);
}

bool DialogLimit::Allows()
{
    isFirstRefusal = false;
    // One press, one dialog: the row that a page has begun goes on after it.
    if (std::exchange(isPressed, false))
        return true;
    if (!sinceLast.isValid() || sinceLast.hasExpired(quietTime))
        inRow = 0;
    // Counts no further than a second refusal.
    inRow = std::min(inRow + 1, longestRow + 2);
    if (inRow <= longestRow)
        return true;
    isFirstRefusal = inRow == longestRow + 1;
    sinceLast.start();
    return false;
}

void DialogLimit::Ended()
{
    isPressed = false;
    sinceLast.start();
}

bool DialogLimit::eventFilter(QObject *watched, QEvent *event)
{
    if (IsPress(*event)) {
        const auto *const widget = qobject_cast<QWidget *>(watched);
        isPressed = isPressed || (widget != nullptr && area && area->isAncestorOf(widget));
    }
    return false;
}

} // namespace Tesk
