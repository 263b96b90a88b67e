#include "cart/model/clsShoppingCart.h"

#include "base/Errors.h"
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
    if (entries.UpperBound() - entries.LowerBound() + 1 >= MostItems)
        throw OverflowError(
            QStringLiteral("The shopping cart holds %1 articles, and no more fit into it. Save it, "
                           "then go on with an empty one.")
                .arg(MostItems),
            {QStringLiteral("errorCartFull"), {QString::number(MostItems)}});
    entries.Append(std::move(item));
}

void clsShoppingCart::Clear()
{
    entries = ShoppingCartItemList();
}

qint16 clsShoppingCart::Count() const
{
    const int count = entries.UpperBound() - entries.LowerBound() + 1;
    if (count > MostItems)
        throw OverflowError(
            QStringLiteral("The shopping cart holds %1 articles; it can work with %2. Delete some.")
                .arg(count)
                .arg(MostItems));
    return static_cast<qint16>(count);
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
