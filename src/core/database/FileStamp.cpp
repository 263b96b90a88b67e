#include "core/database/FileStamp.h"

#include <QDataStream>
#include <QFile>
#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <sys/stat.h>
#endif

namespace Tesk::Database {

std::optional<QByteArray> StampOf(const QString &fileName,
                                  std::chrono::system_clock::time_point now)
{
#ifdef Q_OS_LINUX
    // More than what the coarsest file system takes for one moment.
    constexpr time_t youngestAge = 3; // seconds
    struct stat status = {};
    if (::stat(QFile::encodeName(fileName).constData(), &status) != 0)
        return errno == ENOENT ? std::optional(QByteArray()) : std::nullopt;
    if (status.st_ctim.tv_sec + youngestAge > std::chrono::system_clock::to_time_t(now))
        return std::nullopt;
    QByteArray stamp;
    QDataStream stream(&stamp, QIODevice::WriteOnly);
    stream << quint64{status.st_dev} << quint64{status.st_ino} << qint64{status.st_size}
           << qint64{status.st_ctim.tv_sec} << qint64{status.st_ctim.tv_nsec};
    return stamp;
#else
    Q_UNUSED(fileName)
    Q_UNUSED(now)
    return std::nullopt;
#endif
}

} // namespace Tesk::Database
