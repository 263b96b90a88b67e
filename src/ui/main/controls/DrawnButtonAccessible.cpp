#include "ui/main/controls/DrawnButtonAccessible.h"

#include "ui/main/controls/DrawnButton.h"

namespace Tesk {

namespace {

QAccessibleInterface *MakeInterface(const QString & /*className*/, QObject *object)
{
    auto *const button = qobject_cast<DrawnButton *>(object);
    return button == nullptr ? nullptr : new DrawnButtonAccessible(button);
}

} // namespace

DrawnButtonAccessible::DrawnButtonAccessible(DrawnButton *button)
    : QAccessibleWidget(button, button->Role())
{}

void DrawnButtonAccessible::Install()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(MakeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

QAccessible::State DrawnButtonAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.selectable = Button()->Role() == QAccessible::ListItem;
    state.selected = Button()->IsMarked();
    return state;
}

QStringList DrawnButtonAccessible::actionNames() const
{
    if (!Button()->isEnabled())
        return {};
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
}

void DrawnButtonAccessible::doAction(const QString &actionName)
{
    if (actionName == pressAction())
        Button()->click();
    else
        QAccessibleWidget::doAction(actionName);
}

DrawnButton *DrawnButtonAccessible::Button() const
{
    return static_cast<DrawnButton *>(object());
}

} // namespace Tesk
