#pragma once

#include <QString>

namespace Tesk {

/// The article number with the blank before its first digit, trimmed: "AB123" → "AB 123".
QString NormaliseArtNr(const QString &text);

} // namespace Tesk
