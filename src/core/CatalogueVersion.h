#pragma once

#include <QString>

namespace Tesk {

/// Stands for a version that nobody knows.
inline const QString UnknownVersion = QStringLiteral("–");

/// The first line of the file "version" in the application directory, in the code page and without
/// its line end; UnknownVersion when there is nothing in it. Throws FileError for a file that
/// cannot be read.
QString ReadCatalogueVersion(const QString &applicationDirectory);

} // namespace Tesk
