#pragma once

class QWidget;

namespace Tesk {

class clsShoppingCart;

/// The user's commands on the cart file: each asks for the file first. `owner` is the window that
/// the dialogs belong to.
namespace CartFileCommands {

/// Saves the cart under the chosen name, which gets the ending ".csv" when it lacks it. False when
/// the user cancelled. Throws FileError.
bool AskAndSave(const clsShoppingCart &cart, QWidget *owner);

/// Loads the chosen file into the cart; see ShoppingCartFile::Load for its errors, after which the
/// cart may have changed. False when the user cancelled: the cart is as it was.
bool AskAndLoad(clsShoppingCart &cart, QWidget *owner);

} // namespace CartFileCommands

} // namespace Tesk
