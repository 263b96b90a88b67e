#pragma once

#include "contact/ContactServices.h"

#include <QObject>

class QWidget;

namespace Tesk {

class Controller;
class MainMenu;

/// What the menu entries do that need no more than dialogs: price list, settings, contact, about
/// box, and the end of the program.
class MenuCommands final : public QObject
{
    Q_OBJECT

public:
    /// All of it outlives the commands; `window` owns their dialogs.
    MenuCommands(MainMenu &menus, Controller &controller, const ContactServices &contactServices,
                 QWidget *window);

    /// Asks whether to leave. Closing the question without an answer means No.
    bool IsExitConfirmed() const;

Q_SIGNALS:
    /// The prices on the pages have changed.
    void PriceListLoaded();
    /// The contact form was sent, or handed back for printing; the last contact holds its texts.
    void ContactDone(bool isForPrinting);

private:
    void AskAndLoadPriceList();
    void ShowSettings();
    void ShowContact();
    void ShowInfo();
    void AskAndExit();

    Controller &controller;
    ContactServices services;
    QWidget *window;
};

} // namespace Tesk
