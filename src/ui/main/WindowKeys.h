#pragma once

#include <QObject>

class QWidget;

namespace Tesk {

/// What no menu entry carries: the keys of the tabs, the key that closes the window, and the
/// mouse's back button, wherever in the window they are pressed, a page included.
class WindowKeys final : public QObject
{
    Q_OBJECT

public:
    /// `window` owns the keys.
    explicit WindowKeys(QWidget *window);

Q_SIGNALS:
    void Back();
    /// `position`: the tab's, from 0.
    void ShowTab(int position);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *window;
};

} // namespace Tesk
