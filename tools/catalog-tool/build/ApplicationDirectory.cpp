#include "build/ApplicationDirectory.h"

#include "base/Errors.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <filesystem>
#include <system_error>

namespace Tesk {

namespace {

/// All that a build makes or clears away. A journal that an old database left behind would be laid
/// over the new one.
constexpr std::array Parts{"catalog.db", "catalog.db-journal", "resources.chm", "content",
                           "PDF",        "price_list.txt",     "version"};

[[noreturn]] void ThrowUnwritable(const QString &path, const QString &reason)
{
    throw FileError(QStringLiteral("\"%1\" cannot be written (%2). Check the permissions and the "
                                   "free space, and close programs that use it.")
                        .arg(QDir::toNativeSeparators(path), reason));
}

QDir MadeFolder(const QString &path)
{
    if (!QDir().mkpath(path))
        ThrowUnwritable(path, QStringLiteral("the folder cannot be made"));
    return QDir(QDir(path).absolutePath());
}

void Move(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(),
                            QFileInfo(to).filesystemFilePath(), error);
    if (error)
        ThrowUnwritable(to, QString::fromStdString(error.message()));
}

} // namespace

ApplicationDirectory::ApplicationDirectory(const QString &path)
    : folder(MadeFolder(path))
    , lock(folder.filePath(QStringLiteral(".catalog-tool.lock")))
    , stage(folder.filePath(QStringLiteral(".catalog-tool")))
{
    lock.setStaleLockTime(0);
    if (!lock.tryLock(0)) {
        if (lock.error() == QLockFile::LockFailedError)
            throw FileError(QStringLiteral("Another build writes into \"%1\". Wait for its end and "
                                           "start again.")
                                .arg(QDir::toNativeSeparators(folder.path())));
        ThrowUnwritable(folder.path(), QStringLiteral("the lock file cannot be made"));
    }
    // The rest of a build that was killed.
    stage.removeRecursively();
    MadeFolder(stage.path());
}

ApplicationDirectory::~ApplicationDirectory()
{
    stage.removeRecursively();
}

QString ApplicationDirectory::NewFile(const QString &path)
{
    QString file = stage.filePath(path);
    MadeFolder(QFileInfo(file).path());
    return file;
}

void ApplicationDirectory::Write(const QString &path, const QByteArray &bytes)
{
    QFile file(NewFile(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        ThrowUnwritable(file.fileName(), file.errorString());
}

void ApplicationDirectory::Finish()
{
    for (const char *part : Parts)
        Replace(QString::fromLatin1(part));
}

void ApplicationDirectory::Replace(const QString &part)
{
    const QString oldPath = folder.filePath(part);
    const QString newPath = stage.filePath(part);
    // A file is replaced in one step; a folder, and what has no successor, has to go first.
    const bool isReplacedInOneStep = QFileInfo(oldPath).isFile() && QFileInfo(newPath).isFile();
    if (QFileInfo::exists(oldPath) && !isReplacedInOneStep)
        Move(oldPath, NewFile(QStringLiteral("replaced/%1").arg(part)));
    if (QFileInfo::exists(newPath))
        Move(newPath, oldPath);
}

} // namespace Tesk
