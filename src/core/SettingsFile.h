#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <chrono>
#include <functional>

namespace Tesk {

/// One JSON object of objects in a file that several programs read and write. Failures are no
/// errors to the caller; each leaves a line in the logging category "tesk.settings".
class SettingsFile final
{
public:
    /// How long a write waits for another program's, which takes a few milliseconds.
    static constexpr std::chrono::milliseconds UsualPatience{1000};

    explicit SettingsFile(const QString &name, std::chrono::milliseconds patience = UsualPatience);

    /// The object as it stands on the disk now; empty when the file is absent, unreadable or
    /// damaged.
    QJsonObject Read() const;

    /// Lets `change` alter the object while no other program writes, and replaces the file when it
    /// did. The file stays as it was when it cannot be read or written; a damaged one is copied
    /// beside itself, once, before it is replaced.
    void Update(const std::function<void(QJsonObject &)> &change) const;

private:
    enum class State { Usable, Damaged, Unreadable };

    struct Content
    {
        State state = State::Usable;
        QByteArray bytes;
        QJsonObject root;
    };

    Content Load() const;
    bool KeepCopy(const QByteArray &damaged) const;
    void Replace(const QJsonObject &root) const;

    QString fileName;
    std::chrono::milliseconds patience;
};

} // namespace Tesk
