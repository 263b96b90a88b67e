#include "core/StringHelper.h"

#include "base/CodePage.h"

#include <algorithm>

namespace Tesk {

QString MaskNonAscii(const QString &text)
{
    QString masked = text;
    std::replace_if(
        masked.begin(), masked.end(),
        [](QChar character) { return CodePage::CodeOf(character) > 127; }, QLatin1Char('_'));
    return masked;
}

} // namespace Tesk
