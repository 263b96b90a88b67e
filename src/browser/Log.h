#pragma once

#include <QLoggingCategory>

namespace Tesk {

/// "tesk.browser": loads that failed, members that are missing, changes that were dropped.
Q_DECLARE_LOGGING_CATEGORY(browserLog)
/// "tesk.browser.changes": pages into which everything was written, as soon as it is there.
Q_DECLARE_LOGGING_CATEGORY(changesLog)
/// "tesk.browser.gate": requests that were refused.
Q_DECLARE_LOGGING_CATEGORY(gateLog)
/// "tesk.browser.page": what the pages' own scripts report on their console.
Q_DECLARE_LOGGING_CATEGORY(pageLog)
/// "tesk.browser.print": prints that failed or were refused.
Q_DECLARE_LOGGING_CATEGORY(printLog)

} // namespace Tesk
