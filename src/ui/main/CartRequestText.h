#pragma once

#include <QString>

#include <optional>

namespace Tesk::CartRequestText {

/// The id of the product that a catalogue page asks to put into the cart: what stands behind the
/// last ":" of a status text that holds "shoppingCart", the whole text without a ":". It may be
/// empty or no number. Nothing for any other text.
std::optional<QString> ProductId(const QString &statusText);

} // namespace Tesk::CartRequestText
