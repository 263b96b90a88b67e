#pragma once

#include <QList>
#include <QObject>

namespace Tesk {

class WebBrowser;

/// How large the pages of some browser controls are shown: the same in all of them, changed in the
/// steps that browsers have, by call or by the mouse wheel with the control key.
class PageZoom final : public QObject
{
    Q_OBJECT

public:
    static constexpr int OwnSize = 100; ///< percent

    /// The controls outlive the zoom.
    explicit PageZoom(const QList<WebBrowser *> &controls, QObject *parent = nullptr);

    void In();
    void Out();
    void Reset();

Q_SIGNALS:
    void PercentChanged(int percent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void SetPercent(int value);
    void Apply(WebBrowser *browser) const;

    QList<WebBrowser *> browsers;
    int percent = OwnSize;
    /// What the wheel has turned since the last step, in eighths of a degree.
    int turned = 0;
};

} // namespace Tesk
