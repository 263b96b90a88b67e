#pragma once

#include <QString>

namespace Tesk {

/// The settings store: text values under a sub-key of one root, which is the registry on Windows.
/// Elsewhere it is one JSON file, an object of sub-keys that hold objects of values, read afresh at
/// each access and written whole through a temporary file. Several programs may use it at once.
///
/// Nothing is reported to the user: what cannot be read is empty, and a refused write is lost. Both
/// leave a line in the logging category "tesk.settings". A file that is damaged is copied beside
/// itself before the first write replaces it; one that cannot be read is never replaced.
class Registry final
{
public:
    /// `fileName`: the JSON file; its folder is made at the first write. Not used on Windows.
    explicit Registry(const QString &settingsFile);

    /// The value's text up to the first NUL; empty when it is absent or not a text.
    QString RegGetString(const QString &subKey, const QString &valueName) const;
    void RegSetString(const QString &subKey, const QString &valueName, const QString &text);
    void RegDeleteValue(const QString &subKey, const QString &valueName);

    /// The JSON file of the user's configuration folder.
    static QString DefaultFileName();

private:
    QString fileName;
};

/// The sub-key that holds all of the program's values.
inline constexpr QLatin1String SettingsKey{"Software\\Tesk"};

} // namespace Tesk
