#include "cart/file/CartFileCommands.h"

#include "cart/file/ShoppingCartFile.h"
#include "core/FileDialog.h"

namespace Tesk::CartFileCommands {

namespace {

const QString Ending = QStringLiteral(".csv");
const QString Filter =
    QStringLiteral("Tesk Shopping Cart (*.csv)") + QChar(QChar::Null) + QStringLiteral("*.csv");
constexpr quint32 OverwritePrompt = 0x2;
constexpr quint32 HideReadOnly = 0x4;

} // namespace

bool AskAndSave(const clsShoppingCart &cart, QWidget *owner)
{
    const QString path = FileDialog::ShowSaveDialog(
        Filter, OverwritePrompt | HideReadOnly | FileDialog::PathMustExist, owner, Ending);
    if (path.isEmpty())
        return false;
    ShoppingCartFile::Save(cart, path);
    return true;
}

bool AskAndLoad(clsShoppingCart &cart, QWidget *owner)
{
    const QString path = FileDialog::ShowOpenDialog(
        Filter, FileDialog::PathMustExist | FileDialog::FileMustExist, owner);
    if (path.isEmpty())
        return false;
    ShoppingCartFile::Load(path, cart);
    return true;
}

} // namespace Tesk::CartFileCommands
