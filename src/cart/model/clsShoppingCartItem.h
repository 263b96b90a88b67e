#pragma once

#include "cart/model/ShoppingCartItemList.h"

#include <QString>

#include <optional>
#include <vector>

namespace Tesk {

/// One line of a template for a set's members.
struct SetTemplateRow
{
    QString id;
    QString artNr;
    QString title;
    QString amount;
};

/// One line of the cart: a single article, or a set with its members.
class clsShoppingCartItem final
{
public:
    QString Id; ///< the product's database id
    QString ArtNr;
    QString Title;       ///< the product's name at the time it was added
    qint16 Amount = 0;   ///< of a member: its count within one set
    QString AltCategory; ///< the customer's own category or reference
    std::optional<ShoppingCartItemList> SetItems;

    /// Whether there is a member list, of whatever length.
    bool IsSet() const { return SetItems.has_value(); }

    /// Replaces the member list by one new item a row, from position `lowerBound` on. Throws
    /// ConversionError for an amount that is no 16-bit number; the old list then stands.
    void AddSetTemplate(const std::vector<SetTemplateRow> &entries, int lowerBound = 0);

    /// The line and its members' lines, as the cart file holds them; lines end with CR LF and an
    /// empty line ends the record. Fields are parted by ";" and written as they stand.
    QString Serialize() const;

    /// Removes a member as ShoppingCartItemList::Remove does. Throws SubscriptError for an item
    /// that is no set.
    void DeleteSubItem(qint16 index);

private:
    QString SerializeLine() const;
};

} // namespace Tesk
