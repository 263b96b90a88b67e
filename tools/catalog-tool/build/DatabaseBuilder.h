#pragma once

#include <QString>

namespace Tesk {

class CatalogueSources;

/// Writes the tables as a version 2 database file, texts in the code page. Throws CatalogueError,
/// naming the row, for what the database does not take.
void BuildDatabase(const CatalogueSources &sources, const QString &fileName);

} // namespace Tesk
