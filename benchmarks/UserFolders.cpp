#include "UserFolders.h"

#include <QDir>

namespace Tesk {

QProcessEnvironment UserFolders::Environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                       folder.filePath(QStringLiteral("settings")));
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
