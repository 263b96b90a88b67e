#include "ui/main/controls/WrappedText.h"

#include <cmath>

namespace Tesk {

WrappedText::WrappedText(const QString &text, const QFont &font, int width)
    : layout(text, font)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    double y = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        y += std::ceil(line.height());
    }
    layout.endLayout();
}

int WrappedText::Height() const
{
    int height = 0;
    for (int i = 0; i < layout.lineCount(); ++i)
        height += static_cast<int>(std::ceil(layout.lineAt(i).height()));
    return height;
}

void WrappedText::Draw(QPainter &painter, const QPointF &topLeft) const
{
    layout.draw(&painter, topLeft);
}

} // namespace Tesk
