#include "ui/main/controls/ScrollerButton.h"

#include "ui/main/controls/Colours.h"
#include "ui/main/controls/Triangle.h"

#include <QPainter>

#include <algorithm>

namespace Tesk {

namespace {

// In pixels.
constexpr int LeastButtonHeight = 20;
constexpr int PictureButtonWidth = 24;
constexpr int CaptionMargin = 9;
constexpr double CornerRadius = 2;
constexpr QSizeF TriangleSize(7, 9);
constexpr double BarWidth = 1.5;

// How much of the white lies on the red.
constexpr float GroundShare = 0.16F;
constexpr float HoveredGroundShare = 0.30F;
constexpr float PressedGroundShare = 0.42F;
constexpr float DisabledGroundShare = 0.08F;
constexpr float DisabledPictureShare = 0.45F;

QColor White(float share)
{
    QColor colour = Colours::OnBand;
    colour.setAlphaF(share);
    return colour;
}

} // namespace

ScrollerButton::ScrollerButton(Picture buttonPicture, QWidget *parent)
    : DrawnButton(QAccessible::Button, parent)
    , picture(buttonPicture)
{
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ScrollerButton::sizeHint() const
{
    const int height = std::max(LeastButtonHeight, fontMetrics().height() + 4);
    if (picture != Picture::None)
        return {PictureButtonWidth, height};
    const QSize caption = fontMetrics().size(Qt::TextShowMnemonic | Qt::TextSingleLine, text());
    return {caption.width() + 2 * CaptionMargin, height};
}

void ScrollerButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    float ground = GroundShare;
    if (!isEnabled())
        ground = DisabledGroundShare;
    else if (isDown())
        ground = PressedGroundShare;
    else if (underMouse())
        ground = HoveredGroundShare;
    painter.setPen(Qt::NoPen);
    painter.setBrush(White(ground));
    painter.drawRoundedRect(rect(), CornerRadius, CornerRadius);

    const QColor colour = isEnabled() ? Colours::OnBand : White(DisabledPictureShare);
    if (picture == Picture::None) {
        painter.setPen(colour);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
    } else {
        DrawPicture(painter, colour);
    }
    if (hasFocus()) {
        painter.setPen(Colours::OnBand);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), CornerRadius,
                                CornerRadius);
    }
}

void ScrollerButton::DrawPicture(QPainter &painter, const QColor &colour) const
{
    const bool leadsBack = picture == Picture::First || picture == Picture::Previous;
    const bool hasBar = picture == Picture::First || picture == Picture::Last;
    const Direction direction = leadsBack ? Direction::Left : Direction::Right;

    QRectF triangle(QPointF(), TriangleSize);
    triangle.moveCenter(QRectF(rect()).center());
    if (hasBar)
        triangle.translate(leadsBack ? BarWidth : -BarWidth, 0);
    DrawTriangle(painter, triangle, direction, colour);
    if (hasBar) {
        const double left =
            leadsBack ? triangle.left() - 2 * BarWidth : triangle.right() + BarWidth;
        painter.fillRect(QRectF(left, triangle.top(), BarWidth, triangle.height()), colour);
    }
}

} // namespace Tesk
