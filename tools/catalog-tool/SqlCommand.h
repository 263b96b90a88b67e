#pragma once

#include <QStringList>

namespace Tesk {

/// `catalog-tool sql [--json] FILE STATEMENT`: prints the rows of the statement on the catalogue as
/// a table or as JSON (sql/TableText.h); nothing is left beside the catalogue or in a cache.
/// Returns the exit status; throws UsageError for wrong arguments, CatalogueError for a catalogue
/// that cannot be opened and a statement that fails.
int RunSql(const QStringList &arguments);

} // namespace Tesk
