#pragma once

#include "sqlite2/PageFile.h"
#include "sqlite2/Schema.h"

#include <vector>

namespace Sqlite2 {

/// Reads the tables and their declared indexes out of `sqlite_master`, tables in the order of their
/// creation. Views and triggers are stepped over, as are the indexes that a constraint implies.
/// Every page of the file is found in its place on the way (PageCensus). Throws Error for a schema
/// that it cannot read and for pages that are not where they belong.
std::vector<Table> ReadSchema(const PageFile &file);

} // namespace Sqlite2
