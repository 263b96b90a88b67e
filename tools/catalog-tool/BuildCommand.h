#pragma once

#include <QStringList>

namespace Tesk {

/// `catalog-tool build SOURCES APPDIR`: checks the sources and makes an application directory of
/// them. Problems of the sources go to standard error. Returns the exit status; throws UsageError
/// for wrong arguments, CatalogueError for what fails later. Needs a QGuiApplication.
int RunBuild(const QStringList &arguments);

/// `catalog-tool check SOURCES`: the same checks, without building.
int RunCheck(const QStringList &arguments);

} // namespace Tesk
