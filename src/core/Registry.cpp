#include "core/Registry.h"

#ifdef Q_OS_WIN
#include <QSettings>
#else
#include "core/SettingsFile.h"

#include <QStandardPaths>
#endif

namespace Tesk {

namespace {

/// Texts end at their first NUL, whoever stored them.
QString UpToNul(const QString &text)
{
    const qsizetype end = text.indexOf(QChar(QChar::Null));
    return end < 0 ? text : text.left(end);
}

#ifdef Q_OS_WIN
QSettings OpenKey(const QString &subKey)
{
    return QSettings(QLatin1String("HKEY_LOCAL_MACHINE\\") + subKey, QSettings::NativeFormat);
}
#endif

} // namespace

Registry::Registry(const QString &settingsFile)
    : fileName(settingsFile)
{}

#ifdef Q_OS_WIN

QString Registry::RegGetString(const QString &subKey, const QString &valueName) const
{
    const QVariant value = OpenKey(subKey).value(valueName);
    return value.typeId() == QMetaType::QString ? UpToNul(value.toString()) : QString();
}

void Registry::RegSetString(const QString &subKey, const QString &valueName, const QString &text)
{
    OpenKey(subKey).setValue(valueName, text);
}

void Registry::RegDeleteValue(const QString &subKey, const QString &valueName)
{
    OpenKey(subKey).remove(valueName);
}

QString Registry::DefaultFileName()
{
    return QString();
}

#else

QString Registry::RegGetString(const QString &subKey, const QString &valueName) const
{
    // A value of another type, and a sub-key that is no object, give the empty text.
    const QJsonObject key = SettingsFile(fileName).Read().value(subKey).toObject();
    return UpToNul(key.value(valueName).toString());
}

void Registry::RegSetString(const QString &subKey, const QString &valueName, const QString &text)
{
    SettingsFile(fileName).Update([&](QJsonObject &root) {
        QJsonObject key = root.value(subKey).toObject();
        key.insert(valueName, text);
        root.insert(subKey, key);
    });
}

void Registry::RegDeleteValue(const QString &subKey, const QString &valueName)
{
    SettingsFile(fileName).Update([&](QJsonObject &root) {
        QJsonObject key = root.value(subKey).toObject();
        if (!key.contains(valueName))
            return;
        key.remove(valueName);
        root.insert(subKey, key);
    });
}

QString Registry::DefaultFileName()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return folder + QLatin1String("/tesk-catalog/settings.json");
}

#endif

} // namespace Tesk
