#pragma once

#include "cart/dialogs/frmShoppingCartAdd.h"

namespace Tesk {

class Controller;

/// Adds the rows to the shopping cart in their order, each on a line of its own. A row's own
/// article number decides what is added, its competitor's number only without one; a row without
/// either, without an amount, or whose number is unknown adds nothing. A row that fails does not
/// cost the others: once they are added, throws the first one's error, ConversionError for an id or
/// a member's amount of the catalogue that is no 16-bit number, OverflowError for a full cart.
void AddRowsToCart(const frmShoppingCartAdd::Entries &rows, Controller &controller);

} // namespace Tesk
