#pragma once

#include <memory>
#include <vector>

namespace Tesk {

class clsShoppingCartItem;

/// A list of cart items whose positions run from LowerBound() to UpperBound(). Items are shared:
/// a copy of the list holds the same items.
class ShoppingCartItemList final
{
public:
    using Item = std::shared_ptr<clsShoppingCartItem>;

    /// The empty list; the first item that is appended takes position `first`.
    explicit ShoppingCartItemList(int first = 0)
        : lowerBound(first)
    {}

    int LowerBound() const { return lowerBound; }
    /// One less than LowerBound() when the list is empty.
    int UpperBound() const { return lowerBound + static_cast<int>(items.size()) - 1; }
    /// Throws SubscriptError outside the bounds.
    const Item &At(int index) const;

    auto begin() const { return items.begin(); }
    auto end() const { return items.end(); }

    void Append(Item item);
    /// Removes position `index`; a position behind the last removes the last, one before the first
    /// removes the first. Nothing happens to an empty list. Throws SubscriptError for the single
    /// item of a list that starts above 0: no list can end below its own start there.
    void Remove(int index);

private:
    int lowerBound;
    std::vector<Item> items;
};

} // namespace Tesk
