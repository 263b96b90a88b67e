#include "browser/Engine.h"
#include "core/Registry.h"
#include "ui/main/CatalogApplication.h"
#include "ui/main/CatalogueProgram.h"

#include <QDir>
#include <QStandardPaths>

namespace {

/// Where version 2 databases that were opened once are kept.
QString CacheFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QLatin1String("/tesk-catalog");
}

} // namespace

int main(int argc, char **argv)
{
    Tesk::ConfigureEngine();
    const Tesk::CatalogApplication application(argc, argv);
    return Tesk::RunCatalogue(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()),
                              Tesk::Registry::DefaultFileName(), CacheFolder());
}
