#pragma once

#include <QByteArray>

class QPageRanges;
class QPrinter;

namespace Tesk {

/// Paints the sheets of a PDF document on a printer, each as a picture as large as the paper
/// allows. Works in any thread. `sheets` counts from 1; empty: all of them.
/// Throws FileError when the document cannot be read, CatalogueError when the printer fails.
void PaintPdf(const QByteArray &pdf, const QPageRanges &sheets, QPrinter &printer);

} // namespace Tesk
