#pragma once

#include <QtGlobal>

/// How a contact dialog was closed, as the value of its property `Action`.
namespace Tesk::ContactAction {

inline constexpr qint32 Sent = 0;
inline constexpr qint32 Printed = 1;
inline constexpr qint32 Cancelled = 2;

} // namespace Tesk::ContactAction
