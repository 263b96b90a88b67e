#pragma once

#include <QAccessibleWidget>

namespace Tesk {

class DrawnButton;

/// What readers of the screen learn of a DrawnButton.
class DrawnButtonAccessible final : public QAccessibleWidget
{
public:
    explicit DrawnButtonAccessible(DrawnButton *button);

    /// Lets Qt use this class for every DrawnButton. Any number of calls counts as one.
    static void Install();

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;

private:
    DrawnButton *Button() const;
};

} // namespace Tesk
