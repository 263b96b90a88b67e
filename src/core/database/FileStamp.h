#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tesk::Database {

/// What tells without reading a file that it is still the one it was: its place on the disk, its
/// size, and the time of its last change, which no program can set. Empty for a file that does not
/// exist. Nothing where the system cannot tell, or for a file changed so lately that another change
/// could bear the same time.
std::optional<QByteArray> StampOf(const QString &fileName);

} // namespace Tesk::Database
