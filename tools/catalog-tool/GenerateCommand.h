#pragma once

#include <QStringList>

namespace Tesk {

/// `catalog-tool generate FILE --products N --seed S`: writes a made-up catalogue for benchmarks
/// and tests. The seed may be left out. Returns the exit status; throws UsageError for wrong
/// arguments, CatalogueError for what fails later.
int RunGenerate(const QStringList &arguments);

} // namespace Tesk
