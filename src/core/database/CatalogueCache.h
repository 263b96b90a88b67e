#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace Tesk::Database {

/// The folder that keeps imported catalogues, one file for each source path.
///
/// A file is an SQLite 3 database with a seal behind it: the identity of its source and hashes of
/// everything. Only a file whose seal matches is ever opened. Files appear whole, under their name
/// at once, and are never changed, so that several programs may use and replace them.
class CatalogueCache
{
public:
    /// An empty folder name makes a cache that keeps nothing.
    explicit CatalogueCache(const QString &folderName)
        : folder(folderName)
    {}

    /// The file that holds the import of this source; empty when there is none to be trusted.
    QString Find(const QString &sourceName, const QByteArray &identity) const;

    /// Keeps the import of a source, in place of an older one. Answers its file name; empty, with
    /// a line in the log, when it cannot be written.
    QString Store(const QString &sourceName, const QByteArray &identity,
                  QByteArrayView image) const;

private:
    QString FileNameOf(const QString &sourceName) const;

    QString folder;
};

} // namespace Tesk::Database
