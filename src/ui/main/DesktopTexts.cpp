#include "ui/main/DesktopTexts.h"

#include "ui/main/Log.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace Tesk {

namespace {

/// The library names languages by their ISO codes.
QString IsoCode(const QString &code)
{
    if (code == QLatin1String("ge"))
        return QStringLiteral("de");
    if (code == QLatin1String("sp"))
        return QStringLiteral("es");
    return code;
}

} // namespace

DesktopTexts::~DesktopTexts()
{
    QCoreApplication::removeTranslator(&translator);
}

void DesktopTexts::UseLanguage(const QString &code)
{
    QCoreApplication::removeTranslator(&translator);
    const QString name = QLatin1String("qtbase_") + IsoCode(code);
    if (translator.load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&translator);
    else
        qCInfo(applicationLog).noquote() << "There are no desktop texts" << name;
}

} // namespace Tesk
