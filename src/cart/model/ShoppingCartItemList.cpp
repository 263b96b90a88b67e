#include "cart/model/ShoppingCartItemList.h"

#include "base/Errors.h"

#include <algorithm>

namespace Tesk {

const ShoppingCartItemList::Item &ShoppingCartItemList::At(int index) const
{
    if (index < LowerBound() || index > UpperBound())
        throw SubscriptError(QStringLiteral("The cart's list has no position %1.").arg(index));
    return items[static_cast<size_t>(index - lowerBound)];
}

void ShoppingCartItemList::Append(Item item)
{
    items.push_back(std::move(item));
}

void ShoppingCartItemList::Remove(int index)
{
    // A list that ends at 0 becomes the plain empty list; any other keeps its start and must still
    // hold an item, which is what a list of one that starts at 1 cannot.
    if (UpperBound() <= 0) {
        *this = ShoppingCartItemList();
        return;
    }
    if (items.size() <= 1)
        throw SubscriptError(
            QStringLiteral("The last member of a set cannot be removed. Remove the set instead."),
            {QStringLiteral("errorCartLastMember"), {}});
    const int removed = std::clamp(index, LowerBound(), UpperBound());
    items.erase(items.begin() + (removed - lowerBound));
}

} // namespace Tesk
