#include "browser/UserPress.h"

#include <QApplication>
#include <QKeyEvent>

#include <utility>

namespace Tesk {
namespace {

/// A key held down is pressed once. Qt makes key events of its own too, which may go to what is
/// being destroyed.
bool IsPress(const QEvent &event)
{
    return event.spontaneous() && (event.type() == QEvent::MouseButtonPress ||
                                   (event.type() == QEvent::KeyPress &&
                                    !static_cast<const QKeyEvent &>(event).isAutoRepeat()));
}

} // namespace

UserPress::UserPress()
{
    qApp->installEventFilter(this);
}

bool UserPress::Take()
{
    return std::exchange(isPressed, false);
}

// Whom the event is for does not matter: a user who presses anything is not held.
bool UserPress::eventFilter(QObject *, QEvent *event)
{
    isPressed = isPressed || IsPress(*event);
    return false;
}

} // namespace Tesk
