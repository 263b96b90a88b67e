#include "core/database/Log.h"

namespace Tesk::Database {

Q_LOGGING_CATEGORY(databaseLog, "tesk.database")

} // namespace Tesk::Database
