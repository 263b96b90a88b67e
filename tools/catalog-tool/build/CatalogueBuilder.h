#pragma once

#include <QString>

namespace Tesk {

class CatalogueSources;

/// Makes everything of an application directory but the program itself from sources that were
/// checked. Throws CatalogueError; the directory then stands as it was before. Needs a
/// QGuiApplication.
void BuildCatalogue(const CatalogueSources &sources, const QString &applicationDirectory);

} // namespace Tesk
