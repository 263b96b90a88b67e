#pragma once

#include <QString>

namespace Tesk {

class clsShoppingCart;

/// The shopping cart as a file: 8-bit text in the code page, lines that end with CR LF. A line
/// holds id, article number, title, amount and category, parted by ";" and written as they stand.
/// An item's line is followed by those of its members; an empty line ends the item.
namespace ShoppingCartFile {

/// Writes the cart, whole or not at all: whatever fails, an older file of this name stays as it
/// was. A character outside the code page becomes '?'. Throws FileError.
void Save(const clsShoppingCart &cart, const QString &path);

/// Replaces the cart's items by those of the file. Every item gets a member list, an empty one for
/// a single article; one without its closing empty line is left out. Line ends may be LF alone.
/// Throws FileError for a file that cannot be opened, and the cart stays as it was. What is wrong
/// later ends the loading, and the cart keeps the items read before: SubscriptError for a line of
/// fewer than five fields, ConversionError for an amount that is no 16-bit number, OverflowError
/// beyond 32767 items or members, FileError for a file that cannot be read on.
void Load(const QString &path, clsShoppingCart &cart);

} // namespace ShoppingCartFile

} // namespace Tesk
