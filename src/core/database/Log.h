#pragma once

#include <QLoggingCategory>

namespace Tesk::Database {

/// "tesk.database": why a catalogue did not open or a statement gave no rows.
Q_DECLARE_LOGGING_CATEGORY(databaseLog)

} // namespace Tesk::Database
