#include "FakePageContext.h"

namespace Tesk {

QString FakePageContext::GetText(const QString &key) const
{
    return QStringLiteral("T(%1)").arg(key);
}

QString FakePageContext::GetContentBaseUrl() const
{
    return QStringLiteral("file:///C:/My Katalog");
}

QString FakePageContext::GetResourceBaseUrl() const
{
    return QStringLiteral("mk:@MSITStore:C:\\My Katalog\\resources.chm::");
}

QString FakePageContext::GetInfoDocumentUrl(const QString &helpId) const
{
    return GetResourceBaseUrl() + QLatin1String("/Dokumente/info_en_") + helpId.mid(1) +
           QLatin1String(".html");
}

} // namespace Tesk
