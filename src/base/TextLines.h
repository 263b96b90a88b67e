#pragma once

#include <QStringList>

namespace Tesk {

/// The lines of an 8-bit text file in the code page, without their line ends (CR LF or LF). Throws
/// FileError for a file that cannot be read (a folder included) or that holds no line at all;
/// `advice` is the sentence of its message that tells the reader what to do.
QStringList ReadTextLines(const QString &fileName, const QString &advice);

} // namespace Tesk
