#include "UserFolders.h"

#include "core/Registry.h"

#include <QDir>

namespace Tesk {

UserFolders::UserFolders()
{
    // The language of the pages that the bare window shows.
    Registry(SettingsFolder() + QLatin1String("/tesk-catalog/settings.json"))
        .RegSetString(SettingsKey, QStringLiteral("Location"), QStringLiteral("English"));
}

QProcessEnvironment UserFolders::Environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), SettingsFolder());
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), CacheFolder());
    environment.insert(QStringLiteral("QT_LOGGING_RULES"),
                       QStringLiteral("tesk.browser.changes=true"));
    environment.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    return environment;
}

void UserFolders::ForgetDatabases() const
{
    QDir(CacheFolder()).removeRecursively();
}

} // namespace Tesk
