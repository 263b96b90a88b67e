#pragma once

#include "cart/model/ShoppingCartItemList.h"

#include <QString>
#include <QStringList>

namespace Tesk {

class clsShoppingCart;

/// Makes the items of a cart file from its lines, one after the other.
class CartRecords final
{
public:
    /// `nameOfFile` stands in the messages; finished items are appended to `cart`.
    CartRecords(const QString &nameOfFile, clsShoppingCart &cart);

    /// The next line, without its line end. Throws SubscriptError for fewer than five fields,
    /// ConversionError for an amount that is no 16-bit number, OverflowError for an item or member
    /// too many.
    void TakeLine(const QString &line);

    /// Whether the closing empty line of the last item is still to come.
    bool IsInsideRecord() const { return head != nullptr; }

private:
    ShoppingCartItemList::Item ItemOf(const QString &line) const;
    void EndRecord();
    QString Place() const;
    QStringList PlaceAndLimit() const;

    QString fileName;
    clsShoppingCart &cart;
    qsizetype lineNumber = 0;
    ShoppingCartItemList::Item head;
    ShoppingCartItemList members;
};

} // namespace Tesk
