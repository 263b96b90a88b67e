#pragma once

#include "contact/ContactServices.h"

#include <QtGlobal>

class QWidget;

namespace Tesk {

class Controller;

/// What the pane's commands do with the cart; each asks the user by a dialog first. An error of the
/// family CatalogueError leaves them once the cart is in order again.
class CartActions final
{
public:
    /// `controller` outlives the object; the dialogs belong to the window of `pane`.
    CartActions(Controller &controller, const ContactServices &contactServices, QWidget &pane);

    void Save();
    /// False when the user cancelled.
    bool Load();
    /// False when the user cancelled.
    bool AddManually();
    /// False when the user answered No.
    bool Empty();
    /// The request form, or with `isOrder` the order form. One of the values of ContactAction.
    qint32 AskContact(bool isOrder);

private:
    Controller &controller;
    ContactServices contactServices;
    QWidget &pane;
};

} // namespace Tesk
