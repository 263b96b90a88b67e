#include "cart/model/clsShoppingCart.h"

#include "base/Numbers.h"

namespace Tesk {

void clsShoppingCart::Add(const QString &id, const QString &artNr, const QString &title,
                          const QString &amount)
{
    auto item = std::make_shared<clsShoppingCartItem>();
    item->Id = id;
    item->ArtNr = artNr;
    item->Title = title;
    item->Amount = ToInt16(amount);
    AddItem(std::move(item));
}

void clsShoppingCart::AddItem(ShoppingCartItemList::Item item)
{
    entries.Append(std::move(item));
}

void clsShoppingCart::Clear()
{
    entries = ShoppingCartItemList();
}

qint16 clsShoppingCart::Count() const
{
    return ToInt16(static_cast<double>(entries.UpperBound() - entries.LowerBound() + 1));
}

QString clsShoppingCart::Serialize() const
{
    QString text;
    for (const ShoppingCartItemList::Item &item : entries)
        text += item->Serialize();
    return text;
}

void clsShoppingCart::DeleteItem(qint16 index, qint16 index1)
{
    if (index1 < 0)
        entries.Remove(index);
    else
        entries.At(index)->DeleteSubItem(index1);
}

} // namespace Tesk
