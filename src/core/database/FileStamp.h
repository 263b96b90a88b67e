#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>

namespace Tesk::Database {

/// What tells without reading a file that it is still the one it was: its place on the disk, its
/// size, and the time of its last change, which no program can set. Empty for a file that does not
/// exist. Nothing where the system cannot tell, or for a file changed so short before `now`, the
/// present time, that another change could bear the same time.
std::optional<QByteArray>
StampOf(const QString &fileName,
        std::chrono::system_clock::time_point now = std::chrono::system_clock::now());

} // namespace Tesk::Database
