#pragma once

#include <QtGlobal>

/// How a dialog was closed, as the value of its property `Action`.
namespace Tesk::DialogAction {

inline constexpr qint32 Confirmed = 1;
inline constexpr qint32 Cancelled = 2;

} // namespace Tesk::DialogAction
