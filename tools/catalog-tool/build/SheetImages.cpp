#include "build/SheetImages.h"

#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QUrl>

namespace Tesk {

namespace {

bool IsVector(const QString &file)
{
    return file.endsWith(QLatin1String(".svg"));
}

QSizeF OwnSize(const QString &file)
{
    return IsVector(file) ? QSizeF(QSvgRenderer(file).viewBoxF().size())
                          : QSizeF(QImageReader(file).size());
}

} // namespace

SheetImages::SheetImages(const QDir &sheetFolder)
    : folder(sheetFolder)
{}

QSizeF SheetImages::intrinsicSize(QTextDocument *document, int, const QTextFormat &format)
{
    const QTextImageFormat image = format.toImageFormat();
    const QSizeF own = OwnSize(FileOf(format));
    if (own.isEmpty())
        return {};
    const double aspect = own.height() / own.width();

    QSizeF size = own;
    if (image.width() > 0)
        size = {image.width(), image.height() > 0 ? image.height() : image.width() * aspect};
    else if (image.height() > 0)
        size = {image.height() / aspect, image.height()};
    const double pageWidth = document->pageSize().width();
    return size.width() > pageWidth ? size * (pageWidth / size.width()) : size;
}

void SheetImages::drawObject(QPainter *painter, const QRectF &rectangle, QTextDocument *, int,
                             const QTextFormat &format)
{
    const QString file = FileOf(format);
    if (IsVector(file))
        QSvgRenderer(file).render(painter, rectangle);
    else
        painter->drawImage(rectangle, QImage(file));
}

QString SheetImages::FileOf(const QTextFormat &format) const
{
    return folder.filePath(QUrl::fromPercentEncoding(format.toImageFormat().name().toUtf8()));
}

} // namespace Tesk
