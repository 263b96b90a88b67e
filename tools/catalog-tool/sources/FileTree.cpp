#include "sources/FileTree.h"

#include <QDir>
#include <QDirIterator>

namespace Tesk {

QStringList ListFiles(const QDir &root, const QString &folder)
{
    QStringList files;
    QDirIterator entries(root.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext())
        files.append(root.relativeFilePath(entries.next()));
    files.sort();
    return files;
}

} // namespace Tesk
