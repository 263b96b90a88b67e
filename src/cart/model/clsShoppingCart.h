#pragma once

#include "cart/model/clsShoppingCartItem.h"

namespace Tesk {

/// The shopping cart: items in the order of adding, equal articles on lines of their own.
class clsShoppingCart
{
public:
    /// Appends a new item. Throws ConversionError for an amount that is no 16-bit number.
    void Add(const QString &id, const QString &artNr, const QString &title, const QString &amount);
    void AddItem(ShoppingCartItemList::Item item);
    void Clear();

    const ShoppingCartItemList &Entries() const { return entries; }
    void SetEntries(ShoppingCartItemList list) { entries = std::move(list); }
    /// Throws ConversionError beyond 32767 items.
    qint16 Count() const;

    QString Serialize() const;

    /// Removes item `index`, or with an `index1` of 0 or more that member of the item.
    void DeleteItem(qint16 index, qint16 index1);

private:
    ShoppingCartItemList entries;
};

} // namespace Tesk
