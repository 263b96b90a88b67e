#pragma once

#include <QString>

namespace Tesk {

class PageContext;
class clsShoppingCart;
class clsShoppingCartItem;

/// The cart's lines as the HTML of the page where they are edited and of the order form. Numbers
/// and titles may hold markup, as in the catalogue; categories, which people type, are shown as
/// they are. The lines of items are keyed by their index in the cart, those of a set's members by
/// both indexes: "2", "2_1".
class CartHtml final
{
public:
    /// `pageContext` outlives the object.
    explicit CartHtml(const PageContext &pageContext);

    /// The table with fields for category and amount; a text in its place for an empty cart.
    QString CartList(const clsShoppingCart &cart) const;
    /// The table to be read only; empty for an empty cart.
    QString OrderList(const clsShoppingCart &cart) const;

private:
    enum class Kind { Cart, Order };

    QString Table(const clsShoppingCart &cart, Kind kind) const;
    QString Captions() const;
    QString ItemRows(const clsShoppingCartItem &item, int index, Kind kind) const;
    QString ArticleCells(const clsShoppingCartItem &article) const;
    QString ProductCell(const QString &id, const QString &text) const;
    QString Fields(const clsShoppingCartItem &article, const QString &key, bool isMember) const;
    QString DeleteCell(const QString &artNr, const QString &key, bool isMember) const;
    QString Text(const char *key) const;

    const PageContext &context;
};

} // namespace Tesk
