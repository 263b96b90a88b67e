#pragma once

#include <QAbstractButton>
#include <QAccessible>

namespace Tesk {

/// The base of the buttons that the program draws itself. The pointer, Enter and the space bar
/// press them; readers of the screen learn their name, role and state.
class DrawnButton : public QAbstractButton
{
    Q_OBJECT

public:
    DrawnButton(QAccessible::Role accessibleRole, QWidget *parent);

    QAccessible::Role Role() const { return role; }
    /// Whether this is the marked one of a list.
    virtual bool IsMarked() const { return false; }

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QAccessible::Role role;
};

} // namespace Tesk
