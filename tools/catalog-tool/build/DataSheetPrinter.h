#pragma once

#include <QByteArray>
#include <QString>

namespace Tesk {

/// Prints an HTML page as a PDF file: A4, the page's title and page numbers at the foot. Pictures
/// are found relative to the page; vector drawings stay vectors. The same page gives the same
/// bytes. Throws FileError when the page cannot be read. Needs a QGuiApplication.
QByteArray PrintDataSheet(const QString &htmlFile);

} // namespace Tesk
