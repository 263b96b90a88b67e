#pragma once

#include <QString>

namespace Tesk {

/// The text without the blanks at its ends; other white space stays.
QString TrimSpaces(const QString &text);

} // namespace Tesk
