#include "ui/main/controls/DrawnButton.h"

#include "ui/main/controls/DrawnButtonAccessible.h"

#include <QKeyEvent>

namespace Tesk {

DrawnButton::DrawnButton(QAccessible::Role accessibleRole, QWidget *parent)
    : QAbstractButton(parent)
    , role(accessibleRole)
{
    DrawnButtonAccessible::Install();
}

void DrawnButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace Tesk
