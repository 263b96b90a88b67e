#pragma once

#include "cart/model/clsShoppingCartItem.h"

namespace Tesk {

/// The shopping cart: items in the order of adding, equal articles on lines of their own.
class clsShoppingCart
{
public:
    /// Appends a new item. Throws ConversionError for an amount that is no 16-bit number.
    void Add(const QString &id, const QString &artNr, const QString &title, const QString &amount);
    /// Appends this very item, not a copy.
    void AddItem(ShoppingCartItemList::Item item);
    void Clear();

    /// The list starts at 0 unless SetEntries gave another.
    const ShoppingCartItemList &Entries() const { return entries; }
    void SetEntries(ShoppingCartItemList list) { entries = std::move(list); }
    /// Throws ConversionError beyond 32767 items.
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
