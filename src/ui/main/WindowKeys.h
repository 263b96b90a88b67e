#pragma once

#include <QObject>

class QKeySequence;
class QWidget;

namespace Tesk {

/// The keys of a window, and the mouse's back button, wherever in the window they are pressed, a
/// page included. Those that menu entries carry are the menu's own.
class WindowKeys final : public QObject
{
    Q_OBJECT

public:
    /// `window` owns the keys.
    explicit WindowKeys(QWidget *window);

Q_SIGNALS:
    void FastSearch();
    void Home();
    void Back();
    void PreviousProduct();
    void NextProduct();
    /// `position`: the tab's, from 0.
    void ShowTab(int position);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Add(const QKeySequence &key, void (WindowKeys::*signal)());

    QWidget *window;
};

} // namespace Tesk
