#pragma once

#include <QString>

namespace Tesk {

/// The text with "_" for every character whose code in the 8-bit code page is above 127. Characters
/// outside the code page stay.
QString MaskNonAscii(const QString &text);

} // namespace Tesk
