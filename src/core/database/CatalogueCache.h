#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <chrono>

namespace Tesk::Database {

/// The folder that keeps imported catalogues, one file for each source path.
///
/// A file is an SQLite 3 database with a seal behind it: the identity of its source and hashes of
/// everything. Only a file whose seal matches is ever opened. Checking it reads it and its source
/// whole; a note beside the file keeps in mind which files were checked, by their stamps
/// (FileStamp.h), so that they need not be read again as long as they stay as they are. Files
/// appear whole, under their name at once, and are never changed, so that several programs may use
/// and replace them.
class CatalogueCache final
{
public:
    /// An empty folder name makes a cache that keeps nothing.
    explicit CatalogueCache(const QString &folderName)
        : folder(folderName)
    {}

    /// The file that holds the import of this source; empty when there is none to be trusted.
    QString Find(const QString &sourceName, const QByteArray &identity) const;

    /// The stamps of the source, its journal and the file of its import, as NoteChecked() keeps
    /// them in mind. Empty without such a file, or where stamps tell nothing at the time `now`.
    QByteArray
    StampsOf(const QString &sourceName,
             std::chrono::system_clock::time_point now = std::chrono::system_clock::now()) const;
    /// The same file as Find() would find, where nothing has changed since Find() found it; empty
    /// else. Reads no more than the note.
    QString FindChecked(const QString &sourceName, const QByteArray &stamps) const;
    /// Find() has found the file; `stamps` were taken before.
    void NoteChecked(const QString &sourceName, const QByteArray &stamps) const;

    /// Keeps the import of a source, in place of an older one. Answers its file name; empty, with
    /// a line in the log, when it cannot be written.
    QString Store(const QString &sourceName, const QByteArray &identity,
                  QByteArrayView image) const;

private:
    QString FileNameOf(const QString &sourceName) const;
    QString NoteNameOf(const QString &sourceName) const;

    QString folder;
};

} // namespace Tesk::Database
