#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace Tesk {

class clsShoppingCartItem;

/// A list of cart items whose positions run from `lowerBound` to UpperBound().
class ShoppingCartItemList
{
public:
    using Item = std::shared_ptr<clsShoppingCartItem>;

    explicit ShoppingCartItemList(int lowerBound = 0) : lowerBound(lowerBound) {}

    int LowerBound() const { return lowerBound; }
    int UpperBound() const { return lowerBound + static_cast<int>(items.size()) - 1; }
    /// Throws SubscriptError outside the bounds.
    const Item &At(int index) const;
    void Append(Item item);
    /// Removes position `index`; a position behind the last removes the last. Throws SubscriptError
    /// for the single item of a list that does not start at 0.
    void Remove(int index);

private:
    int lowerBound;
    std::vector<Item> items;
};

/// One line of a template for a set's members.
struct SetTemplateRow
{
    QString id;
    QString artNr;
    QString title;
    QString amount;
};

/// One line of the cart: a single article, or a set with its members.
class clsShoppingCartItem
{
public:
    QString Id;    ///< the product's database id
    QString ArtNr;
    QString Title; ///< the product's name at the time it was added
    qint16 Amount = 0; ///< of a member: its count within one set
    QString AltCategory;
    std::optional<ShoppingCartItemList> SetItems;

    /// Whether there is a member list, of whatever length.
    bool IsSet() const { return SetItems.has_value(); }

    /// Replaces the member list by one new item a row, from position `lowerBound` on. Throws
    /// ConversionError for an amount that is no 16-bit number.
    void AddSetTemplate(const std::vector<SetTemplateRow> &entries, int lowerBound = 0);

    /// The line and its members' lines, as the cart file holds them; lines end with CR LF.
    QString Serialize() const;

    void DeleteSubItem(qint16 index);
};

} // namespace Tesk
