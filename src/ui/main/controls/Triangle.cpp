#include "ui/main/controls/Triangle.h"

#include <QColor>
#include <QFontMetrics>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace Tesk {

void DrawTriangle(QPainter &painter, const QRectF &bounds, Direction direction,
                  const QColor &colour)
{
    const double middle = bounds.center().y();
    const bool isRight = direction == Direction::Right;
    const double base = isRight ? bounds.left() : bounds.right();
    const double tip = isRight ? bounds.right() : bounds.left();

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF(
        {QPointF(base, bounds.top()), QPointF(tip, middle), QPointF(base, bounds.bottom())}));
    painter.restore();
}

QSizeF ArrowSizeFor(const QFontMetrics &metrics)
{
    // No wider than leaves a gap of its place before the text.
    return {std::min(metrics.height() * 0.32, 5.0), std::min(metrics.height() * 0.5, 9.0)};
}

} // namespace Tesk
