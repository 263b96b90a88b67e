#pragma once

#include "support/PdfFiles.h"

#include <QList>
#include <QString>

namespace Tesk {

// What a reader of the catalogue's pages expects of every sheet.

/// The first word that reaches into the margins of its sheet; empty when there is none.
QString WordInMargins(const QList<PdfSheet> &sheets);
/// What is wrong with the address line, which stands once on each sheet, below all other words and
/// pictures and clear of them; empty when nothing is. A file without sheets has a fault.
QString FaultOfAddressLines(const QString &path, const QString &addressLine);
/// Whether nothing is printed there; the area in points, the sheets counted from 0.
bool IsWhite(const QString &path, qsizetype sheet, const QRectF &area);
/// The words of a sheet as the printer writes them, with single blanks between them.
QString WordsOf(const PdfSheet &sheet);

} // namespace Tesk
