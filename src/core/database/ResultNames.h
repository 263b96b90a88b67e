#pragma once

#include "core/database/SelectOutline.h"
#include "core/database/TableSchema.h"

#include <QStringList>

#include <optional>

namespace Tesk::Database {

/// The names that a version 2 database gives to the columns of a result: `alias.column` in the
/// columns that `*` or `alias.*` stands for in a join, the bare name over a single table, the alias
/// of `expression as alias`, and what else is in the list as it is written. Nothing where a `*`
/// stands for columns that are not known here.
std::optional<QStringList> ResultNames(const SelectOutline &select, const SqlTokens &tokens,
                                       const QByteArray &sql, const TableSchema &schema);

} // namespace Tesk::Database
