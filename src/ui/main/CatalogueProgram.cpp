#include "ui/main/CatalogueProgram.h"

#include "base/Errors.h"
#include "browser/LocalProfile.h"
#include "contact/ContactServices.h"
#include "contact/LastContact.h"
#include "contact/MailSender.h"
#include "core/Controller.h"
#include "core/Registry.h"
#include "ui/main/frmCatalog.h"
#include "widgets/PlainMessageBox.h"

#include <QApplication>
#include <QDir>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace Tesk {

namespace {

void ShowStartupError(const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    PlainMessageBox(QMessageBox::Critical, QString(), message, QMessageBox::Ok).exec();
}

} // namespace

int RunCatalogue(const QString &applicationDirectory, const QString &settingsFile,
                 const QString &cacheFolder)
{
    Registry registry(settingsFile);
    Controller controller(applicationDirectory, registry, cacheFolder);
    // The browser engine takes its time as well.
    controller.BeginInitApplication();
    // Lives longer than the window, whose pages use the profile.
    QObject profileOwner;
    QWebEngineProfile *const profile = CreateLocalProfile(applicationDirectory + QDir::separator() +
                                                              QLatin1String("resources.chm"),
                                                          applicationDirectory, &profileOwner);
    const MailSender mailSender;
    LastContact lastContact;
    const ContactServices contactServices{
        [&controller](const QString &key) { return controller.GetText(key); }, registry, mailSender,
        lastContact};
    frmCatalog window(controller, contactServices, profile);
    try {
        const QString message = window.Load();
        window.show();
        if (!message.isEmpty())
            QTimer::singleShot(0, &window, [&window, message] {
                PlainMessageBox(QMessageBox::Warning, QString(), message, QMessageBox::Ok, &window)
                    .exec();
            });
    } catch (const CatalogueError &error) {
        ShowStartupError(error.Message());
        return EXIT_FAILURE;
    }
    return QApplication::exec();
}

} // namespace Tesk
