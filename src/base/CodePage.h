#pragma once

#include <QByteArray>
#include <QString>

/// The 8-bit code page of text files and catalogues: the system's on Windows, Windows-1252
/// elsewhere. The five bytes that Windows-1252 leaves open map one to one (0x81 is U+0081).
namespace Tesk::CodePage {

/// One character for each byte.
QString FromBytes(QByteArrayView bytes);

/// A character outside the code page becomes one '?', also where it takes two QChars.
QByteArray ToBytes(QStringView text);

/// The character's code, 0 to 255; that of '?' for a character outside the code page.
int CodeOf(QChar character);

} // namespace Tesk::CodePage
