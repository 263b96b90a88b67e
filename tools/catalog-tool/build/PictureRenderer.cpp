#include "build/PictureRenderer.h"

#include "base/Errors.h"
#include "sources/SvgSource.h"

#include <QPainter>
#include <QSvgRenderer>

namespace Tesk {

namespace {

/// Edges are drawn this much finer and averaged down.
constexpr int Supersampling = 4;
constexpr int SmallestOpaqueAlpha = 128;

QRgb OverWhite(QRgb pixel)
{
    const int white = 255 - qAlpha(pixel);
    const QRgb premultiplied = qPremultiply(pixel);
    return qRgb(qRed(premultiplied) + white, qGreen(premultiplied) + white,
                qBlue(premultiplied) + white);
}

} // namespace

QImage RenderPicture(const SvgSource &drawing)
{
    const QSize size = (drawing.Size() * PixelsPerCssPixel).toSize();
    QSvgRenderer renderer(drawing.Bytes());
    QImage fine(size * Supersampling, QImage::Format_ARGB32_Premultiplied);
    if (!renderer.isValid() || fine.isNull())
        throw CatalogueError(QStringLiteral("The drawing cannot be rendered at %1 x %2 pixels. "
                                            "Check its viewBox.")
                                 .arg(size.width())
                                 .arg(size.height()));
    fine.fill(Qt::transparent);
    QPainter painter(&fine);
    renderer.setAspectRatioMode(Qt::IgnoreAspectRatio);
    renderer.render(&painter, QRectF(fine.rect()));
    painter.end();

    QImage picture = fine.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                         .convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *pixels = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            pixels[x] = qAlpha(pixels[x]) < SmallestOpaqueAlpha ? 0 : OverWhite(pixels[x]);
    }
    return picture;
}

} // namespace Tesk
