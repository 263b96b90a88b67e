#pragma once

#include "base/Errors.h"

namespace Tesk {

/// What the action's error says in a language whose texts are their keys and three values:
/// "key|first value|second value|{2}" for an error of two. Empty without an error.
template <typename Action>
QString KeyAndValuesOfError(Action action)
{
    try {
        action();
    } catch (const CatalogueError &error) {
        return error.MessageIn(
            [](const QString &key) { return key + QLatin1String("|{0}|{1}|{2}"); });
    }
    return QString();
}

} // namespace Tesk
