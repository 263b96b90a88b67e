#include "base/WholeFile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <unistd.h>
#endif

namespace Tesk::WholeFile {

namespace {

/// Waits until the bytes are on the disk: some systems tell only then that there is no room. Qt
/// does it too, but overlooks the answer. Answers the system's error, or 0.
int Synchronise(const QSaveFile &file)
{
#ifdef Q_OS_UNIX
    int status = 0;
    do {
        status = fsync(file.handle());
    } while (status != 0 && errno == EINTR);
    const bool isUnknownHere = errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
    return status == 0 || isUnknownHere ? 0 : errno;
#else
    Q_UNUSED(file);
    return 0;
#endif
}

bool WriteAll(QSaveFile &file, const QList<QByteArrayView> &parts)
{
    const auto write = [&file](QByteArrayView part) {
        return file.write(part.data(), part.size()) == part.size();
    };
    // Flushed by hand: the commit overlooks it when the last bytes find no room on the disk.
    return std::all_of(parts.begin(), parts.end(), write) && file.flush();
}

/// Qt gives a temporary file six letters of both cases behind the name of the file.
bool IsTemporaryEnding(QStringView ending)
{
    const auto isLetter = [](QChar c) { return c.isLetter() && c < u'\x7f'; };
    const auto isSmall = [](QChar c) { return c.isLower(); };
    const auto isLarge = [](QChar c) { return c.isUpper(); };
    return std::all_of(ending.begin(), ending.end(), isLetter) &&
           std::any_of(ending.begin(), ending.end(), isSmall) &&
           std::any_of(ending.begin() + 1, ending.end(), isLarge);
}

} // namespace

bool Replace(const QString &fileName, const QList<QByteArrayView> &parts, QString *reason)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || !WriteAll(file, parts)) {
        *reason = file.errorString();
        return false;
    }
    if (const int error = Synchronise(file); error != 0) {
        *reason = qt_error_string(error);
        return false;
    }
    if (!file.commit()) {
        *reason = file.errorString();
        return false;
    }
    return true;
}

void RemoveLeftovers(const QString &fileName)
{
    constexpr qint64 secondsOfAWrite = 3600;
    const QFileInfo file(fileName);
    const QDateTime limit = QDateTime::currentDateTime().addSecs(-secondsOfAWrite);
    const QString pattern = file.fileName() + QStringLiteral(".??????");
    const QFileInfoList candidates = file.dir().entryInfoList({pattern}, QDir::Files);
    for (const QFileInfo &candidate : candidates) {
        if (IsTemporaryEnding(candidate.suffix()) && candidate.lastModified() < limit)
            QFile::remove(candidate.filePath());
    }
}

} // namespace Tesk::WholeFile
