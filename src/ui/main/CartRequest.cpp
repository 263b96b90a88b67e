#include "ui/main/CartRequest.h"

#include "base/Numbers.h"
#include "browser/Log.h"
#include "cart/dialogs/frmShoppingCartAmount.h"
#include "core/Controller.h"
#include "ui/main/CartRequestText.h"
#include "widgets/PlainMessageBox.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace Tesk {

CartRequest::CartRequest(Controller &controller, QWidget *owner)
    : QObject(owner)
    , controller(controller)
    , owner(owner)
{}

void CartRequest::StatusTextChange(const QString &text)
{
    const std::optional<QString> id = CartRequestText::ProductId(text);
    if (isDialogOpen || !id || text == lastStatusText)
        return;
    const QScopedValueRollback dialogGuard(isDialogOpen, true);
    if (!id->isEmpty() && dialogs.Allows()) {
        const QScopeGuard end([this] { dialogs.Ended(); });
        AskAndAdd(*id);
    } else if (!id->isEmpty() && dialogs.IsFirstRefusal()) {
        qCWarning(gateLog, "refused: further requests of the page for the cart");
    }
    lastStatusText = text;
}

void CartRequest::AskAndAdd(const QString &id)
{
    const auto getText = [this](const QString &key) { return controller.GetText(key); };
    frmShoppingCartAmount dialog(getText, owner);
    dialog.exec();
    if (dialog.Action() != DialogAction::Confirmed)
        return;
    const qint16 amount = dialog.Amount();
    controller.AddProductToCart(ToInt16(id), amount, QString());
    Q_EMIT Added();
    const QString message = amount == 1
                                ? controller.GetText(QStringLiteral("ucShoppingCartAddSuccess1"))
                                : controller.GetText(QStringLiteral("ucShoppingCartAddSuccess2"))
                                      .replace(QLatin1String("{0}"), QString::number(amount));
    PlainMessageBox(QMessageBox::NoIcon, QString(), message, QMessageBox::Ok, owner).exec();
}

} // namespace Tesk
