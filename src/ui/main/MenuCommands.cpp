#include "ui/main/MenuCommands.h"

#include "about/frmAbout.h"
#include "contact/dlgContact.h"
#include "core/Controller.h"
#include "core/FileDialog.h"
#include "ui/main/MainMenu.h"
#include "widgets/PlainMessageBox.h"

#include <QAction>
#include <QApplication>

namespace Tesk {

namespace {

const QLatin1String PriceListFilter{"Tesk Price List (*.txt)|*.txt"};
const quint32 PathAndFileMustExist = FileDialog::PathMustExist | FileDialog::FileMustExist;
const QLatin1String SettingsMessage{"not implemented yet... coming soon."};

} // namespace

MenuCommands::MenuCommands(MainMenu &menus, Controller &controller,
                           const ContactServices &contactServices, QWidget *window)
    : QObject(window)
    , controller(controller)
    , services(contactServices)
    , window(window)
{
    connect(menus.mLoadPriceList, &QAction::triggered, this, &MenuCommands::AskAndLoadPriceList);
    connect(menus.mSettings, &QAction::triggered, this, &MenuCommands::ShowSettings);
    connect(menus.mContact, &QAction::triggered, this, &MenuCommands::ShowContact);
    connect(menus.mInfo, &QAction::triggered, this, &MenuCommands::ShowInfo);
    connect(menus.mExit, &QAction::triggered, this, &MenuCommands::AskAndExit);
}

bool MenuCommands::IsExitConfirmed() const
{
    const QString question = controller.GetText(QStringLiteral("mExitConfirm"))
                                 .replace(QLatin1String("{nl}"), QLatin1String("\n"));
    PlainMessageBox box(QMessageBox::Question, QString(), question,
                        QMessageBox::Yes | QMessageBox::No, window);
    return box.exec() != QMessageBox::No;
}

void MenuCommands::AskAndLoadPriceList()
{
    const QString path = FileDialog::ShowOpenDialog(PriceListFilter, PathAndFileMustExist, window);
    if (path.isEmpty())
        return;
    try {
        controller.Prices().LoadPriceList(path);
    } catch (...) {
        // A list that fails half-way has replaced the old one too.
        Q_EMIT PriceListLoaded();
        throw;
    }
    Q_EMIT PriceListLoaded();
}

void MenuCommands::ShowSettings()
{
    PlainMessageBox(QMessageBox::Information, QString(), SettingsMessage, QMessageBox::Ok, window)
        .exec();
}

void MenuCommands::ShowContact()
{
    dlgContact dialog(services, window);
    dialog.exec();
    if (dialog.Action() != ContactAction::Cancelled)
        Q_EMIT ContactDone(dialog.Action() == ContactAction::Printed);
}

void MenuCommands::ShowInfo()
{
    frmAbout(services.getText, controller.ApplicationDirectory(), window).exec();
}

void MenuCommands::AskAndExit()
{
    // The answer decides about the orderly close only: No ends the program as well.
    if (IsExitConfirmed())
        controller.CloseDatabase();
    // Ends the event loop itself: closing the window would ask the same question again.
    QApplication::exit();
}

} // namespace Tesk
