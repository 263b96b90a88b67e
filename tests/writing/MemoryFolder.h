#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

namespace Tesk {

/// For a QTemporaryDir in memory, where there is such a place: synchronising a disk hundreds of
/// times takes its time.
inline QString MemoryFolderTemplate()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
           QStringLiteral("/tesk-writing-XXXXXX");
}

} // namespace Tesk
