#include "cart/pane/CartActions.h"

#include "cart/dialogs/ManualAdd.h"
#include "cart/dialogs/frmShoppingCartAdd.h"
#include "cart/file/CartFileCommands.h"
#include "contact/dlgContactOrder.h"
#include "contact/dlgContactRequest.h"
#include "core/Controller.h"
#include "widgets/PlainMessageBox.h"

namespace Tesk {

namespace {

/// The title is one and the same in every language.
const QString DeleteTitle = QStringLiteral("Exit?");

} // namespace

CartActions::CartActions(Controller &controller, const ContactServices &contactServices,
                         QWidget &pane)
    : controller(controller)
    , contactServices(contactServices)
    , pane(pane)
{}

void CartActions::Save()
{
    CartFileCommands::AskAndSave(controller.GetShoppingCart(), pane.window());
}

bool CartActions::Load()
{
    return CartFileCommands::AskAndLoad(controller.GetShoppingCart(), pane.window());
}

bool CartActions::AddManually()
{
    frmShoppingCartAdd dialog(
        controller.Queries(), [this](const QString &key) { return controller.GetText(key); },
        pane.window());
    dialog.exec();
    if (dialog.Action() != DialogAction::Confirmed)
        return false;
    AddRowsToCart(dialog.Rows(), controller);
    return true;
}

bool CartActions::Empty()
{
    PlainMessageBox box(QMessageBox::Question, DeleteTitle,
                        controller.GetText(QStringLiteral("mShoppingCartDeleteConfirm")),
                        QMessageBox::Yes | QMessageBox::No, pane.window());
    if (box.exec() != QMessageBox::Yes)
        return false;
    controller.GetShoppingCart().Clear();
    return true;
}

qint32 CartActions::AskContact(bool isOrder)
{
    if (isOrder) {
        dlgContactOrder dialog(contactServices, pane.window());
        dialog.exec();
        return dialog.Action();
    }
    dlgContactRequest dialog(contactServices, pane.window());
    dialog.exec();
    return dialog.Action();
}

} // namespace Tesk
