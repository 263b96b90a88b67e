#include "ui/main/PageAddress.h"

#include "base/Numbers.h"

namespace Tesk::PageAddress {

namespace {

/// A jump inside a page leads to the same page: its fragment belongs to no parameter.
QString WithoutFragment(const QString &parameters)
{
    const qsizetype fragment = parameters.lastIndexOf(u'#');
    return fragment < 0 ? parameters : parameters.left(fragment);
}

QString Parameters(const QString &address)
{
    const qsizetype question = address.lastIndexOf(u'?');
    return question < 0 ? address : WithoutFragment(address.mid(question + 1));
}

} // namespace

QString Id(const QString &address)
{
    const qsizetype equals = address.lastIndexOf(u'=');
    const qsizetype question = address.lastIndexOf(u'?');
    // A folder may have a "=" in its name; what follows is no parameter then.
    return equals < 0 || equals < question ? address : WithoutFragment(address.mid(equals + 1));
}

qint16 FirstItem(const QString &address)
{
    const QString parameters = Parameters(address);
    const qsizetype equals = parameters.indexOf(u'=');
    const qsizetype ampersand = parameters.indexOf(u'&');
    if (equals < 0 || ampersand < equals)
        return ToInt16(QStringView());
    return ToInt16(QStringView(parameters).mid(equals + 1, ampersand - equals - 1));
}

QString InLanguage(const QString &address, const QString &languageCode)
{
    const QString folder = address.contains(QLatin1String("mk:@MSITStore"))
                               ? QStringLiteral("/Dokumente/")
                               : QStringLiteral("\\Dokumente\\");
    const qsizetype start = address.indexOf(folder);
    if (start < 0)
        return address;
    const qsizetype underscore = address.indexOf(u'_', start);
    if (underscore < 0)
        return address;
    return address.left(underscore + 1) + languageCode + address.mid(underscore + 3);
}

} // namespace Tesk::PageAddress
