#pragma once

namespace Tesk {

/// What the buttons of the cart pane do, in their order.
enum class CartCommand { Save, Load, ManualAdd, Print, SendRequest, SendOrder, Delete };

} // namespace Tesk
