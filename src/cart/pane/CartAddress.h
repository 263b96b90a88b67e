#pragma once

#include <QString>

#include <optional>

namespace Tesk {

/// What a page of the pane is to be followed by; it stands in the page's address.
enum class CartPageAction { None, Save, SendRequest, SendOrder, Print };

/// The addresses of the pane's pages. Those that are made stand behind the content base; those that
/// are read are whole, and what they are is told by the texts in them.
namespace CartAddress {

/// The cart's page, followed by saving or sending; any other action is none here.
QString Cart(CartPageAction action);
/// The cart's page after the cart was loaded, emptied or has lost a line.
QString ChangedCart();
QString OrderForm(bool isToBePrinted);

bool IsCart(const QString &address);
bool IsOrderForm(const QString &address);
CartPageAction ActionOf(const QString &address);

/// The id that the address of a product's page ends with, of any spelling; nothing for another
/// page.
std::optional<QString> ProductId(const QString &address);

} // namespace CartAddress

} // namespace Tesk
