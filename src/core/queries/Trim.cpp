#include "core/queries/Trim.h"

namespace Tesk {

QString TrimSpaces(const QString &text)
{
    constexpr QChar blank = u' ';
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin] == blank)
        ++begin;
    while (end > begin && text[end - 1] == blank)
        --end;
    return text.mid(begin, end - begin);
}

} // namespace Tesk
