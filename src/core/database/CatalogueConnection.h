#pragma once

#include "core/database/Connection.h"

#include <QString>

namespace Tesk::Database {

enum class FileVersion { Two, Three };

struct CatalogueConnection
{
    Connection connection;
    FileVersion version = FileVersion::Three;
};

/// Opens a catalogue for reading: a version 3 file itself, a version 2 file as the database that
/// was imported from it, which is kept in `cacheFolder` (in memory for an empty name or a folder
/// that cannot be written).
///
/// Throws FileError or Sqlite2::Error for a file that is missing, unreadable or damaged, or of
/// neither version.
CatalogueConnection OpenCatalogue(const QString &fileName, const QString &cacheFolder);

} // namespace Tesk::Database
