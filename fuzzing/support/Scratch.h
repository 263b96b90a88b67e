#pragma once

#include <QByteArray>
#include <QString>

namespace Tesk::Fuzzing {

/// A folder of this run in the system's folder for temporary files; removed when the run ends well.
QString ScratchFolder();

/// Writes a file of the set-up.
void WriteFile(const QString &path, const QByteArray &bytes);

} // namespace Tesk::Fuzzing
