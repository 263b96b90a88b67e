#pragma once

#include <QObject>

namespace Tesk {

/// Remembers whether the user has pressed a key or a button of the mouse.
class UserPress final : public QObject
{
    Q_OBJECT

public:
    UserPress();

    /// Whether there was a press since this or Forget() was called last.
    bool Take();
    void Forget() { isPressed = false; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isPressed = false;
};

} // namespace Tesk
