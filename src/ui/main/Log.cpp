#include "ui/main/Log.h"

namespace Tesk {

Q_LOGGING_CATEGORY(applicationLog, "tesk.application")

} // namespace Tesk
