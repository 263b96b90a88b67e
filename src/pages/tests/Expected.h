#pragma once

#include <QString>

namespace Tesk {

/// The HTML in the file `name` of the test's data folder. Line breaks and the blanks behind them
/// only lay the file out; they are not part of the HTML.
QString ExpectedHtml(const QString &name);

} // namespace Tesk
