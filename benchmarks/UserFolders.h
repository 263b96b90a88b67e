#pragma once

#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace Tesk {

/// The folders in which a started catalogue keeps its settings and its cache, apart from those of
/// whoever runs the benchmark.
class UserFolders final
{
public:
    UserFolders();

    /// For the catalogue, with the log lines that tell of written pages.
    QProcessEnvironment Environment() const;
    /// The next start is one with a catalogue that was never opened before.
    void ForgetDatabases() const;

private:
    QString SettingsFolder() const { return folder.filePath(QStringLiteral("settings")); }
    QString CacheFolder() const { return folder.filePath(QStringLiteral("cache")); }

    QTemporaryDir folder;
};

} // namespace Tesk
