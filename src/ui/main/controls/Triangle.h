#pragma once

#include <QRectF>

class QColor;
class QFontMetrics;
class QPainter;

namespace Tesk {

enum class Direction { Left, Right };

/// Fills the triangle that points in `direction` and fills `bounds`, smooth at every scale.
void DrawTriangle(QPainter &painter, const QRectF &bounds, Direction direction,
                  const QColor &colour);

/// The size of the arrow that stands before a text.
QSizeF ArrowSizeFor(const QFontMetrics &metrics);

} // namespace Tesk
