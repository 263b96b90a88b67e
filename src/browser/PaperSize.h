#pragma once

#include <QLocale>
#include <QPageSize>

namespace Tesk {

/// What lies in the printers of the locale's territory: Letter or A4.
QPageSize UsualPaperSize(const QLocale &locale);

} // namespace Tesk
