#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

namespace Tesk::Database {

/// What an import depends on, as bytes that differ when any of it does: the content of the version
/// 2 file and of its journal, the code page, and the format of the import. Throws FileError for a
/// file that cannot be read.
///
/// Reads the files whole.
QByteArray IdentityOf(const QString &fileName);

/// The file beside a version 2 file that holds what a change to it has not completed.
QString JournalOf(const QString &fileName);

/// The part of it that is the same for all files: the code page and the format of the import.
QByteArray ImportRules();

/// A hash of the device's next `size` bytes, or of what there is; it tells contents apart that
/// differ by accident, not by design. Throws FileError when reading fails.
quint64 HashOfContent(QIODevice &device, qint64 size);
quint64 HashOf(QByteArrayView bytes);

} // namespace Tesk::Database
