#pragma once

#include "cart/model/clsShoppingCartItem.h"

#include <limits>

namespace Tesk {

/// The shopping cart: items in the order of adding, equal articles on lines of their own.
class clsShoppingCart final
{
public:
    /// Positions in the cart are 16-bit numbers, as is its count.
    static constexpr int MostItems = std::numeric_limits<qint16>::max();

    /// Appends a new item. Throws ConversionError for an amount that is no 16-bit number, and as
    /// AddItem does.
    void Add(const QString &id, const QString &artNr, const QString &title, const QString &amount);
    /// Appends this very item, not a copy. Throws OverflowError when the cart holds MostItems.
    void AddItem(ShoppingCartItemList::Item item);
    void Clear();

    /// The list starts at 0 unless SetEntries gave another.
    const ShoppingCartItemList &Entries() const { return entries; }
    void SetEntries(ShoppingCartItemList list) { entries = std::move(list); }
    /// Throws OverflowError beyond MostItems, which only SetEntries can bring about.
    qint16 Count() const;

    /// The records of all items in order; empty for an empty cart.
    QString Serialize() const;

    /// Removes item `index` as ShoppingCartItemList::Remove does, or with an `index1` of 0 or more
    /// that member of the item. Throws SubscriptError when that item does not exist or is no set.
    void DeleteItem(qint16 index, qint16 index1);

private:
    ShoppingCartItemList entries;
};

} // namespace Tesk
