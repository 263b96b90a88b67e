#pragma once

#include <QList>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace Tesk {

// What stands in a PDF file. Sheets are counted from 1; a file that cannot be read has none.

int SheetCount(const QString &path);
/// All sheets, line by line, columns apart, a form feed behind each sheet.
QString TextOfPdf(const QString &path);
/// The pieces of text of one sheet from top to bottom.
QStringList LinesOfSheet(const QString &path, int sheet);

/// A word and where it stands: points from the left and upper edge of its sheet.
struct PdfWord
{
    QString text;
    QRectF place;
};

struct PdfSheet
{
    QSizeF size; ///< points
    QList<PdfWord> words;
};

QList<PdfSheet> SheetsOfPdf(const QString &path);
/// The sheet of each picture.
QList<int> SheetsWithPictures(const QString &path);

} // namespace Tesk
