#include "browser/PdfPainter.h"

#include "base/Errors.h"

#include <QBuffer>
#include <QImageReader>
#include <QPageRanges>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace Tesk {
namespace {

/// Fine enough for the smallest print of a page, and 62 MB for the picture of an A4 sheet.
constexpr int PictureResolution = 400; // dots per inch

QList<int> SheetsToPaint(int count, const QPageRanges &sheets, const QPrinter &printer)
{
    QList<int> chosen;
    for (int sheet = 1; sheet <= count; ++sheet) {
        if (sheets.isEmpty() || sheets.contains(sheet))
            chosen.append(sheet);
    }
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::reverse(chosen.begin(), chosen.end());
    return chosen;
}

/// The order of the sheets in which the copies come that the printer does not make by itself.
QList<int> WithCopies(const QList<int> &sheets, const QPrinter &printer)
{
    const int copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
    QList<int> all;
    if (printer.collateCopies()) {
        for (int copy = 0; copy < copies; ++copy)
            all += sheets;
    } else {
        for (const int sheet : sheets)
            all += QList<int>(copies, sheet);
    }
    return all;
}

QImage Picture(const QByteArray &pdf, int sheet, const QSizeF &paper)
{
    QBuffer buffer;
    buffer.setData(pdf);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "pdf");
    // Larger paper than A3 needs more than the limit meant for pictures from outside.
    reader.setAllocationLimit(0);
    reader.jumpToImage(sheet - 1);
    reader.setBackgroundColor(Qt::white);
    reader.setScaledSize(
        reader.size().scaled((paper * PictureResolution).toSize(), Qt::KeepAspectRatio));
    QImage picture = reader.read();
    if (picture.isNull())
        throw FileError(QStringLiteral("Sheet %1 of the document cannot be read: %2")
                            .arg(QString::number(sheet), reader.errorString()));
    return picture;
}

} // namespace

void PaintPdf(const QByteArray &pdf, const QPageRanges &sheets, QPrinter &printer)
{
    QBuffer buffer;
    buffer.setData(pdf);
    buffer.open(QIODevice::ReadOnly);
    const QImageReader reader(&buffer, "pdf");
    const QList<int> order =
        WithCopies(SheetsToPaint(reader.imageCount(), sheets, printer), printer);
    if (order.isEmpty())
        throw FileError(QStringLiteral(
            "The document has none of the chosen sheets, or the system's package for reading PDF "
            "documents as pictures is missing."));
    // The document has its own margins.
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer))
        throw CatalogueError(QStringLiteral("The printer cannot be used."));
    const QSizeF paper = printer.paperRect(QPrinter::Inch).size();
    bool isFirst = true;
    for (const int sheet : order) {
        if (!isFirst && !printer.newPage())
            throw CatalogueError(QStringLiteral("The printer takes no further sheet."));
        isFirst = false;
        const QImage picture = Picture(pdf, sheet, paper);
        QRectF place(QPointF(),
                     QSizeF(picture.size()).scaled(painter.viewport().size(), Qt::KeepAspectRatio));
        place.moveCenter(QRectF(painter.viewport()).center());
        painter.drawImage(place, picture);
    }
    if (!painter.end())
        throw CatalogueError(QStringLiteral("The printer did not take the last sheet."));
}

} // namespace Tesk
