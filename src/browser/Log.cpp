#include "browser/Log.h"

namespace Tesk {

Q_LOGGING_CATEGORY(browserLog, "tesk.browser")
Q_LOGGING_CATEGORY(changesLog, "tesk.browser.changes", QtWarningMsg)
Q_LOGGING_CATEGORY(gateLog, "tesk.browser.gate")
Q_LOGGING_CATEGORY(pageLog, "tesk.browser.page", QtWarningMsg)
Q_LOGGING_CATEGORY(printLog, "tesk.browser.print")

} // namespace Tesk
