#include "support/Scratch.h"

#include "support/Require.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace Tesk::Fuzzing {

QString ScratchFolder()
{
    static const QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/tesk-fuzz-XXXXXX"));
    Require(folder.isValid(), "a folder for the run can be made");
    return folder.path();
}

void WriteFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    Require(isWritten, "the run's files can be written");
}

} // namespace Tesk::Fuzzing
