#pragma once

#include "core/database/SqlTokens.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace Tesk::Database {

/// Positions of tokens from `begin` up to, and without, `end`.
struct TokenRange
{
    size_t begin = 0;
    size_t end = 0;

    bool IsEmpty() const { return begin == end; }
};

/// One entry of the select list.
struct ResultColumn
{
    TokenRange expression;
    QByteArray alias; ///< empty without one
};

/// One entry of the FROM clause.
struct FromItem
{
    QByteArray table; ///< empty for a sub-select or a table function
    QByteArray alias; ///< the name by which the statement calls it
};

/// The parts of a SELECT statement; of a compound one, those of its first SELECT.
struct SelectOutline
{
    std::vector<ResultColumn> columns;
    std::vector<FromItem> from;
    TokenRange whole; ///< up to the end or to UNION, EXCEPT or INTERSECT
    TokenRange where; ///< the condition behind WHERE
    TokenRange order; ///< ORDER BY with its terms
    TokenRange limit; ///< LIMIT with its terms
    bool isDistinct = false;
    bool isGrouped = false;
    bool isCompound = false;
    /// Whether NATURAL or USING makes columns of two tables one.
    bool hasMergedColumns = false;

    const FromItem *FindItem(const QByteArray &alias) const;
};

/// Nothing for another statement, or one that is not formed like a SELECT.
std::optional<SelectOutline> OutlineOf(const SqlTokens &tokens);

} // namespace Tesk::Database
