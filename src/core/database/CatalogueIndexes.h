#pragma once

#include "core/database/TableSchema.h"

#include <QByteArrayList>

namespace Tesk::Database {

/// The statements that make the indexes of a catalogue's table, and the row that tells SQLite's
/// planner what they hold. Indexes change how quickly an answer comes, never the answer.
struct IndexPlan
{
    QByteArray createSql;
    QByteArray statisticsSql;
};

/// Nothing for a table that is none of a catalogue's or lacks the columns.
QList<IndexPlan> IndexPlansOf(const TableInfo &table, qint64 rowCount);

} // namespace Tesk::Database
