#pragma once

#include "base/Errors.h"

#include <QString>

#include <functional>

namespace Tesk {

/// Why a page cannot be shown, and what to do about it.
namespace PageError {

CatalogueError Missing();
/// `reason`: the engine's own word for it.
CatalogueError Unreadable(const QString &reason);
/// It brought the engine down, and did so again when it was loaded again.
CatalogueError EngineFailed();
/// Its script ran without end.
CatalogueError Stopped();

} // namespace PageError

/// The page shown in place of one that cannot be, in the language of `getText` (Errors.h).
QString FailurePage(const QString &address, const CatalogueError &error,
                    const std::function<QString(const QString &key)> &getText);

} // namespace Tesk
