#pragma once

#include <QString>

namespace Tesk {

class clsShoppingCart;

/// What the cart's page reports by its status text. A line's key is its index in the cart, or for a
/// member of a set both indexes: "2", "2_1". A field's id is its key behind four other characters.
namespace CartMessages {

/// Stores an edit that the text reports, "amountChange:<field id>:<text>" or
/// "altCategoryChange:<field id>:<text>"; any other text changes nothing. An amount is brought
/// between its bounds (AmountText.h), and one that is no number is 1. A category may hold colons. A
/// report that names no line, or an amount beyond 16 bits, changes nothing and leaves a line in
/// "tesk.cart".
void StoreEdit(const QString &text, clsShoppingCart &cart);

/// Whether the text asks for a line to be deleted: "delItem:<key>".
bool IsDeletion(const QString &text);

/// Deletes the line that such a text names, as clsShoppingCart::DeleteItem does. Throws
/// ConversionError or SubscriptError for a key that names none.
void DeleteLine(const QString &text, clsShoppingCart &cart);

} // namespace CartMessages

} // namespace Tesk
