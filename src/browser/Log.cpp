#include "browser/Log.h"

namespace Tesk {

Q_LOGGING_CATEGORY(browserLog, "tesk.browser")
Q_LOGGING_CATEGORY(gateLog, "tesk.browser.gate")
Q_LOGGING_CATEGORY(pageLog, "tesk.browser.page", QtWarningMsg)

} // namespace Tesk
