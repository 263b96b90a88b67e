#pragma once

#include <QString>

namespace Tesk {

/// The page shown in place of one that cannot be: its address, the reason (a sentence) and what to
/// do about it.
QString FailurePage(const QString &address, const QString &reason);

} // namespace Tesk
