#pragma once

#include <QLoggingCategory>

namespace Tesk {

/// "tesk.application": errors that reached the handler around the event loop, texts of the desktop
/// that are not installed.
Q_DECLARE_LOGGING_CATEGORY(applicationLog)

} // namespace Tesk
