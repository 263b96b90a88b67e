#pragma once

#include "cart/model/clsShoppingCart.h"
#include "support/Files.h"

#include <QStringList>

#include <memory>

/// What the tests of the cart file share.
namespace Tesk::CartFiles {

inline ShoppingCartItemList::Item MakeItem(const QString &id, const QString &artNr,
                                           const QString &title, qint16 amount,
                                           const QString &altCategory = QString())
{
    auto item = std::make_shared<clsShoppingCartItem>();
    item->Id = id;
    item->ArtNr = artNr;
    item->Title = title;
    item->Amount = amount;
    item->AltCategory = altCategory;
    return item;
}

/// The items in order, their fields joined by "|"; members are indented by ">".
inline QStringList LinesOf(const clsShoppingCart &cart)
{
    const auto line = [](const clsShoppingCartItem &item) {
        return QStringList{item.Id, item.ArtNr, item.Title, QString::number(item.Amount),
                           item.AltCategory}
            .join(QLatin1Char('|'));
    };
    QStringList lines;
    for (const auto &item : cart.Entries()) {
        lines.append(line(*item));
        if (!item->SetItems)
            continue;
        for (const auto &member : *item->SetItems)
            lines.append(QLatin1Char('>') + line(*member));
    }
    return lines;
}

} // namespace Tesk::CartFiles
