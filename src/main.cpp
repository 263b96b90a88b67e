#include "base/Errors.h"
#include "browser/Engine.h"
#include "browser/LocalProfile.h"
#include "core/Controller.h"
#include "core/Registry.h"
#include "ui/main/CatalogApplication.h"
#include "ui/main/frmCatalog.h"

#include <QDir>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace {

/// Where version 2 databases that were opened once are kept.
QString CacheFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QLatin1String("/tesk-catalog");
}

void ShowStartupError(const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    QMessageBox(QMessageBox::Critical, QString(), message).exec();
}

} // namespace

int main(int argc, char **argv)
{
    Tesk::ConfigureEngine();
    Tesk::CatalogApplication application(argc, argv);
    const QString applicationDirectory =
        QDir::toNativeSeparators(QCoreApplication::applicationDirPath());

    Tesk::Registry registry(Tesk::Registry::DefaultFileName());
    Tesk::Controller controller(applicationDirectory, registry, CacheFolder());
    QWebEngineProfile *const profile = Tesk::CreateLocalProfile(
        applicationDirectory + QDir::separator() + QLatin1String("resources.chm"),
        applicationDirectory, &application);
    Tesk::frmCatalog window(controller, profile);
    try {
        const QString message = window.Load();
        window.show();
        if (!message.isEmpty())
            QTimer::singleShot(0, &window, [&window, message] {
                QMessageBox(QMessageBox::Warning, QString(), message, QMessageBox::Ok, &window)
                    .exec();
            });
    } catch (const Tesk::CatalogueError &error) {
        ShowStartupError(error.Message());
        return EXIT_FAILURE;
    }
    return QApplication::exec();
}
