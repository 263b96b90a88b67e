#pragma once

#include "sqlite2/Schema.h"

#include <string>
#include <string_view>
#include <vector>

namespace Sqlite2 {

/// What a CREATE TABLE statement declares.
struct TableDeclaration
{
    /// Name, columns and row id column; no root page and no indexes yet.
    Table table;
    /// The columns of each PRIMARY KEY and UNIQUE constraint that needs an index of its own, as
    /// positions from 0, in the order of their declaration.
    std::vector<std::vector<std::size_t>> uniqueKeys;
};

/// What a CREATE INDEX statement declares.
struct IndexDeclaration
{
    Index index;
    std::string tableName;
};

/// Reads a CREATE TABLE statement. The INTEGER PRIMARY KEY rule: a column declared exactly INTEGER
/// that alone is the primary key, behind the column or as a constraint of the table, is the row id.
/// Throws Error for a statement that it cannot read.
TableDeclaration ParseCreateTable(std::string_view sql);

/// Reads a CREATE INDEX statement. Throws Error for one that it cannot read.
IndexDeclaration ParseCreateIndex(std::string_view sql);

} // namespace Sqlite2
