#pragma once

#include <QTextLayout>

namespace Tesk {

/// A text broken into lines of a width: between words, and within a word that is wider.
class WrappedText final
{
public:
    WrappedText(const QString &text, const QFont &font, int width);

    int Height() const;
    void Draw(QPainter &painter, const QPointF &topLeft) const;

private:
    QTextLayout layout;
};

} // namespace Tesk
