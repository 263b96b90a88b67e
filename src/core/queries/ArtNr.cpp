#include "core/queries/ArtNr.h"

#include "core/queries/Trim.h"

#include <algorithm>

namespace Tesk {

namespace {

bool IsDecimalDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

} // namespace

QString NormaliseArtNr(const QString &text)
{
    QString artNr = TrimSpaces(text);
    const auto digit = std::find_if(artNr.cbegin(), artNr.cend(), IsDecimalDigit);
    if (!artNr.contains(u' ') && digit != artNr.cend())
        artNr.insert(digit - artNr.cbegin(), u' ');
    return TrimSpaces(artNr);
}

} // namespace Tesk
