#pragma once

#include "core/database/Connection.h"

namespace Tesk::Database {

/// Counts up when the import makes other tables, columns or indexes from the same file.
inline constexpr quint32 ImportFormat = 2;

/// The tables of a version 2 file as an SQLite 3 database: every value a text under its own row id,
/// every column with the collation of its class (Collations.h), with indexes on the columns by
/// which a catalogue's statements join and search.
///
/// Throws Sqlite2::Error for a file that cannot be read and FileError when SQLite fails.
Image ImportVersion2File(const QString &fileName);

} // namespace Tesk::Database
