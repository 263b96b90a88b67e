#include "core/SettingsFile.h"

#include "base/WholeFile.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QLoggingCategory>
#include <QThread>

#include <algorithm>

namespace Tesk {

namespace {

Q_LOGGING_CATEGORY(settingsLog, "tesk.settings")

/// How often a write looks whether another program's has ended.
constexpr int LookMilliseconds = 5;

/// The class's own waiting looks five times in a second, too seldom while others write a lot.
bool WaitForLock(QLockFile &lock, std::chrono::milliseconds patience)
{
    const QDeadlineTimer deadline(patience);
    while (!lock.tryLock(0)) {
        if (lock.error() != QLockFile::LockFailedError || deadline.hasExpired())
            return false;
        QThread::msleep(LookMilliseconds);
    }
    return true;
}

QByteArray BytesOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

SettingsFile::SettingsFile(const QString &name, std::chrono::milliseconds patience)
    : fileName(name)
    , patience(patience)
{}

QJsonObject SettingsFile::Read() const
{
    return Load().root;
}

void SettingsFile::Update(const std::function<void(QJsonObject &)> &change) const
{
    if (!QDir().mkpath(QFileInfo(fileName).path())) {
        qCWarning(settingsLog) << "The folder of the settings cannot be made:" << fileName;
        return;
    }
    QLockFile lock(fileName + QLatin1String(".lock"));
    if (!WaitForLock(lock, patience)) {
        qCWarning(settingsLog) << "The settings cannot be locked for writing:" << fileName;
        return;
    }

    const Content content = Load();
    if (content.state == State::Unreadable)
        return;
    QJsonObject root = content.root;
    change(root);
    if (root == content.root)
        return;
    if (content.state == State::Damaged && !KeepCopy(content.bytes))
        return;
    Replace(root);
}

SettingsFile::Content SettingsFile::Load() const
{
    QFile file(fileName);
    if (!file.exists())
        return {};
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        qCWarning(settingsLog) << "The settings cannot be read:" << fileName << file.errorString();
        return {State::Unreadable, {}, {}};
    }
    // An empty file, as a full disk may leave it, holds nothing to lose.
    if (bytes.isEmpty())
        return {};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (!document.isObject()) {
        qCWarning(settingsLog) << "The settings are damaged:" << fileName << error.errorString();
        return {State::Damaged, bytes, {}};
    }
    const QJsonObject root = document.object();
    const bool holdsObjects =
        std::all_of(root.begin(), root.end(), [](const QJsonValue &key) { return key.isObject(); });
    if (!holdsObjects) {
        qCWarning(settingsLog) << "The settings are damaged:" << fileName << "has foreign values";
        return {State::Damaged, bytes, root};
    }
    return {State::Usable, bytes, root};
}

bool SettingsFile::KeepCopy(const QByteArray &damaged) const
{
    QString copyName = fileName + QLatin1String(".damaged");
    for (int number = 2; QFile::exists(copyName); ++number) {
        // Kept already by a write that then failed.
        if (BytesOf(copyName) == damaged)
            return true;
        copyName = QStringLiteral("%1.damaged-%2").arg(fileName).arg(number);
    }
    QString reason;
    const bool isKept = WholeFile::Replace(copyName, {damaged}, &reason);
    if (isKept)
        qCWarning(settingsLog) << "The damaged settings are kept as" << copyName;
    else
        qCWarning(settingsLog) << "The damaged settings cannot be copied, so they stay:" << fileName
                               << reason;
    return isKept;
}

void SettingsFile::Replace(const QJsonObject &root) const
{
    QString reason;
    if (WholeFile::Replace(fileName, {QJsonDocument(root).toJson()}, &reason))
        WholeFile::RemoveLeftovers(fileName);
    else
        qCWarning(settingsLog) << "The settings cannot be written:" << fileName << reason;
}

} // namespace Tesk
