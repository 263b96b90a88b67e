#include "core/SettingsFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QLoggingCategory>
#include <QSaveFile>

#include <algorithm>

namespace Tesk {

namespace {

Q_LOGGING_CATEGORY(lcSettings, "tesk.settings")

/// How long a write waits for another program's. Both take a few milliseconds.
constexpr int LockMilliseconds = 1000;

} // namespace

SettingsFile::SettingsFile(const QString &name)
    : fileName(name)
{}

QJsonObject SettingsFile::Read() const
{
    QJsonObject root;
    Load(root);
    return root;
}

void SettingsFile::Update(const std::function<void(QJsonObject &)> &change) const
{
    if (!QDir().mkpath(QFileInfo(fileName).path())) {
        qCWarning(lcSettings) << "The folder of the settings cannot be made:" << fileName;
        return;
    }
    QLockFile lock(fileName + QLatin1String(".lock"));
    if (!lock.tryLock(LockMilliseconds)) {
        qCWarning(lcSettings) << "The settings cannot be locked for writing:" << fileName;
        return;
    }

    QJsonObject root;
    const State state = Load(root);
    if (state == State::Unreadable)
        return;
    const QJsonObject before = root;
    change(root);
    if (root == before)
        return;
    if (state == State::Damaged && !KeepCopy())
        return;
    Replace(root);
}

SettingsFile::State SettingsFile::Load(QJsonObject &root) const
{
    QFile file(fileName);
    if (!file.exists())
        return State::Usable;
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        qCWarning(lcSettings) << "The settings cannot be read:" << fileName << file.errorString();
        return State::Unreadable;
    }
    // An empty file, as a full disk may leave it, holds nothing to lose.
    if (bytes.isEmpty())
        return State::Usable;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (!document.isObject()) {
        qCWarning(lcSettings) << "The settings are damaged:" << fileName << error.errorString();
        return State::Damaged;
    }
    root = document.object();
    const bool holdsObjects =
        std::all_of(root.begin(), root.end(), [](const QJsonValue &key) { return key.isObject(); });
    if (!holdsObjects) {
        qCWarning(lcSettings) << "The settings are damaged:" << fileName << "has foreign values";
        return State::Damaged;
    }
    return State::Usable;
}

bool SettingsFile::KeepCopy() const
{
    QString copyName = fileName + QLatin1String(".damaged");
    for (int number = 2; QFile::exists(copyName); ++number)
        copyName = QStringLiteral("%1.damaged-%2").arg(fileName).arg(number);
    const bool isKept = QFile::copy(fileName, copyName);
    if (isKept)
        qCWarning(lcSettings) << "The damaged settings are kept as" << copyName;
    else
        qCWarning(lcSettings) << "The damaged settings cannot be copied, so they stay:" << fileName;
    return isKept;
}

void SettingsFile::Replace(const QJsonObject &root) const
{
    QSaveFile file(fileName);
    // Flushed by hand: the commit itself overlooks it when the last bytes find no room on the disk.
    const bool isWritten = file.open(QIODevice::WriteOnly) &&
                           file.write(QJsonDocument(root).toJson()) >= 0 && file.flush() &&
                           file.commit();
    if (!isWritten)
        qCWarning(lcSettings) << "The settings cannot be written:" << fileName
                              << file.errorString();
}

} // namespace Tesk
