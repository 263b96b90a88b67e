#pragma once

#include <string>
#include <string_view>

namespace Sqlite2 {

/// The database as it stood before an unfinished write, whose journal is given: the saved pages
/// laid over the file, the file cut to its old length. A journal too short for its own header saved
/// nothing yet and leaves the database alone; a record that is cut off or whose checksum is wrong
/// ends the journal. Throws Error for a journal of another kind or one that contradicts the file.
std::string RollBack(std::string database, std::string_view journal);

} // namespace Sqlite2
