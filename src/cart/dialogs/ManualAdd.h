#pragma once

#include "cart/dialogs/frmShoppingCartAdd.h"

namespace Tesk {

class Controller;

/// Adds the rows to the shopping cart in their order, each on a line of its own. A row's own
/// article number decides what is added, its competitor's number only without one; a row without
/// either, without an amount, or whose number is unknown adds nothing. Throws the first row's
/// ConversionError for numbers of the catalogue beyond 16 bits once the other rows are added.
void AddRowsToCart(const frmShoppingCartAdd::Entries &rows, Controller &controller);

} // namespace Tesk
