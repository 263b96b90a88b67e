#pragma once

#include <QStringList>

class QDir;

namespace Tesk {

/// The files below `folder`, in its subfolders too, relative to `root` with '/', sorted. Hidden
/// files (a name that begins with a dot) are left out. Empty when there is no such folder.
QStringList ListFiles(const QDir &root, const QString &folder);

} // namespace Tesk
