#include "ui/main/controls/NavEntry.h"

#include "ui/main/controls/Colours.h"
#include "ui/main/controls/Triangle.h"
#include "ui/main/controls/Twips.h"
#include "ui/main/controls/WrappedText.h"

#include <QPainter>

#include <cmath>

namespace Tesk {

namespace {

// All in twips.
constexpr int ArrowLeft = 80;
constexpr int CaptionLeft = 200;
constexpr int CaptionTop = 30;
constexpr int CaptionWidth = 2790;

} // namespace

NavEntry::NavEntry(QWidget *parent)
    : DrawnButton(QAccessible::ListItem, parent)
{
    setCursor(Qt::PointingHandCursor);
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
}

void NavEntry::SetEntry(const QString &newCaption, const QString &newTag)
{
    caption = newCaption;
    tag = newTag;
    setAccessibleName(caption);
    update();
}

int NavEntry::CaptionHeight() const
{
    return Twips::FromPixels(WrappedText(caption, font(), Twips::ToPixels(CaptionWidth)).Height());
}

void NavEntry::SetMarked(bool marked)
{
    if (marked == isMarked)
        return;
    isMarked = marked;
    update();
    QAccessible::State change;
    change.selected = true;
    QAccessibleStateChangeEvent event(this, change);
    QAccessible::updateAccessibility(&event);
}

void NavEntry::SetHovered(bool hovered)
{
    if (hovered == isHovered)
        return;
    isHovered = hovered;
    update();
}

void NavEntry::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), IsGrey() ? Colours::Marked : Colours::Ground);
    DrawArrow(painter);
    painter.setPen(Colours::OnGround);
    WrappedText(caption, font(), Twips::ToPixels(CaptionWidth))
        .Draw(painter, QPointF(Twips::ToPixels(CaptionLeft), Twips::ToPixels(CaptionTop)));
    if (hasFocus()) {
        painter.setPen(Colours::FocusOnGround);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

/// Level with the letters of the caption's first line, and of their size.
void NavEntry::DrawArrow(QPainter &painter) const
{
    const double line = fontMetrics().height();
    QRectF arrow(QPointF(), ArrowSizeFor(fontMetrics()));
    arrow.moveLeft(double(ArrowLeft) / Twips::PerPixel);
    arrow.moveBottom(Twips::ToPixels(CaptionTop) + std::floor((line + arrow.height()) / 2 - 0.5));
    DrawTriangle(painter, arrow, Direction::Right, Colours::Band);
}

} // namespace Tesk
