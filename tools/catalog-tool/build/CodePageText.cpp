#include "build/CodePageText.h"

#include "base/CodePage.h"

namespace Tesk {

QByteArray CodePageText(const QStringList &lines)
{
    QByteArray bytes;
    for (const QString &line : lines)
        bytes += CodePage::ToBytes(line) + "\r\n";
    return bytes;
}

} // namespace Tesk
