#pragma once

#include <QString>

namespace Tesk {

class CatalogueSources;

/// Compiles the documents, drawings and pictures into a help container and reads every member back
/// from it. Throws CatalogueError: the compiler is missing or failed, or a member came out wrong.
void BuildContainer(const CatalogueSources &sources, const QString &fileName);

} // namespace Tesk
