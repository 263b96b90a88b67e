#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

namespace Tesk {

/// Something that the program writes, in a folder of its own: what stood there before, and the
/// write.
class Writing
{
public:
    Writing();
    virtual ~Writing() = default;
    Writing(const Writing &) = delete;
    Writing &operator=(const Writing &) = delete;

    /// The folder that the write changes.
    QString Folder() const { return folder.filePath(QStringLiteral("written")); }

    /// Writes, and answers what is said about a failure, to the user or in the log; empty when it
    /// succeeded.
    virtual QString Write() = 0;

    /// What the program finds there later. A write changes it from one state to another.
    virtual QByteArray State() const = 0;

    /// The files in the folder.
    QStringList Files() const;
    /// Makes these of the files look as if nobody were still writing them.
    void AgeFiles(const std::function<bool(const QString &fileName)> &isMeant) const;

protected:
    QString PathOf(const char *name) const { return Folder() + u'/' + QLatin1String(name); }
    QString PathBeside(const char *name) const { return folder.filePath(QLatin1String(name)); }

private:
    QTemporaryDir folder;
};

struct KindOfWriting
{
    const char *name;
    std::function<std::unique_ptr<Writing>()> make;
};

/// All that the program writes: the settings, the shopping cart and the kept database, each where
/// nothing stood before and over something older.
const std::vector<KindOfWriting> &KindsOfWriting();

} // namespace Tesk
