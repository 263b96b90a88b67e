#include "core/database/Logging.h"

namespace Tesk::Database {

Q_LOGGING_CATEGORY(log, "tesk.database")

} // namespace Tesk::Database
