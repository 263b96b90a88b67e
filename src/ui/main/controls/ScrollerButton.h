#pragma once

#include "ui/main/controls/DrawnButton.h"

namespace Tesk {

/// A button on the red band, with a drawn picture or a caption.
class ScrollerButton final : public DrawnButton
{
    Q_OBJECT

public:
    enum class Picture { None, First, Previous, Next, Last };

    ScrollerButton(Picture buttonPicture, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawPicture(QPainter &painter, const QColor &colour) const;

    Picture picture;
};

} // namespace Tesk
