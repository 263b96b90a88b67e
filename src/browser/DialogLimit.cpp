#include "browser/DialogLimit.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace Tesk {
namespace {

/// A press of the user's. A key held down is pressed once. Qt makes key events of its own too,
/// which may go to what is being destroyed.
bool IsPress(const QEvent &event)
{
    return event.spontaneous() && (event.type() == QEvent::MouseButtonPress ||
                                   (event.type() == QEvent::KeyPress &&
                                    !static_cast<const QKeyEvent &>(event).isAutoRepeat()));
}

} // namespace

DialogLimit::DialogLimit()
{
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

// Whom the event is for does not matter: a user who presses anything is not held.
bool DialogLimit::eventFilter(QObject *, QEvent *event)
{
    isPressed = isPressed || IsPress(*event);
    return false;
}

} // namespace Tesk
