#pragma once

#include "ui/main/controls/DrawnButton.h"

namespace Tesk {

/// A clickable caption on the red band. It reaches a little beyond its caption on every side.
class CrumbButton final : public DrawnButton
{
    Q_OBJECT

public:
    explicit CrumbButton(QWidget *parent);

    void SetCaption(const QString &newCaption);
    QString Caption() const { return caption; }
    /// The size of the whole caption, in pixels.
    QSize CaptionSize() const;

    /// Where the caption stands in the parent; one that is narrower than the caption cuts it.
    void SetCaptionRect(const QRect &captionRect);
    QRect CaptionRect() const;
    /// The caption, or as much of it as fits.
    QString ShownCaption() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString caption;
};

} // namespace Tesk
