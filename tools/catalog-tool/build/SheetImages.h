#pragma once

#include <QDir>
#include <QObject>
#include <QTextObjectInterface>

class QTextImageFormat;

namespace Tesk {

/// Draws the pictures of a text document from files: vector drawings as vectors, which
/// QTextDocument by itself would draw as pixels. A picture without a given size is as large as its
/// file says, and never wider than the page.
class SheetImages final : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit SheetImages(const QDir &folder);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &rectangle, QTextDocument *document,
                    int position, const QTextFormat &format) override;

private:
    QString FileOf(const QTextFormat &format) const;

    QDir folder;
};

} // namespace Tesk
