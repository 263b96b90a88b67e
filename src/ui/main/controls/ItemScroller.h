#pragma once

#include <QWidget>

#include <functional>

class QLabel;

namespace Tesk {

class ScrollerButton;

/// Steps through a number of items, shows the position as index/count, and carries the button that
/// leads back in the history. It knows nothing of what the items are.
class ItemScroller final : public QWidget
{
    Q_OBJECT

public:
    /// `textLookup` gives the text of a key in the current language.
    explicit ItemScroller(std::function<QString(const QString &key)> textLookup,
                          QWidget *parent = nullptr);

    /// The captions in the current language.
    void Initialize();
    /// Goes to item 1 of `value`; the buttons stay as they are.
    void SetCount(qint16 value);
    /// `value` is the item's position from 1. One outside the count is shown as it is.
    void SetItemIndex(qint16 value);
    void SetBackEnabled(bool enabled);
    void EnableScroller();
    void DisableScroller();

    /// As a press of the button does: nothing while the button is switched off.
    void PressPrevious();
    void PressNext();

Q_SIGNALS:
    void OnIndexChange(qint16 index);
    void OnHistoryBack();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void GoTo(qint16 value);
    void SetScrollerEnabled(bool backwards, bool onwards);
    void ShowCounter();
    void NameButtons();

    std::function<QString(const QString &)> getText;
    ScrollerButton *btnFirst;
    ScrollerButton *btnPrevious;
    QLabel *Counter;
    ScrollerButton *btnNext;
    ScrollerButton *btnLast;
    ScrollerButton *btnBack;
    qint16 count = 0;
    qint16 index = 0;
};

} // namespace Tesk
