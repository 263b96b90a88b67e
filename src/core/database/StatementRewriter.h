#pragma once

#include "core/database/TableSchema.h"

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace Tesk::Database {

/// A statement as SQLite 3 has to run it to answer as a version 2 database does.
struct RewrittenStatement
{
    QByteArray sql;
    /// The statement as it came, for the case that SQLite refuses the other: a table without row
    /// ids, for one.
    QByteArray original;
    /// The names of the result's columns; nothing where SQLite's names stand.
    std::optional<QStringList> columnNames;
};

/// The rewriting knows no statement, only the parts of a SELECT. What it does not understand stays
/// as it is. `sql` is UTF-8.
RewrittenStatement RewriteStatement(const QByteArray &sql, const TableSchema &schema);

} // namespace Tesk::Database
