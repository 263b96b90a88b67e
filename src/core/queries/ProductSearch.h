#pragma once

#include <QLocale>
#include <QString>

namespace Tesk {

/// What the user asks for in a search of the products.
struct ProductSearch
{
    QString description;    ///< words between single blanks, all of which the name must hold
    QString artNr;          ///< part of an article number
    QString length;         ///< as typed
    QString unit;           ///< "mm", "cm" or "inch"
    bool tolerance = false; ///< lengths 10 % shorter to 10 % longer, not the length alone
};

struct SearchCondition
{
    /// WHERE and what the products must meet; just " WHERE " for a search that asks for nothing.
    QString whereClause;
    bool isEmpty = true; ///< whether the search asks for nothing
    bool usesLength = false;
};

/// The condition that the search puts into Statements::ProductSearch. `locale` is the one in whose
/// notation the length is typed. A length that is no number, is not above 0, or is beyond 32-bit
/// millimetres is not used.
SearchCondition SearchConditionOf(const ProductSearch &search, const QLocale &locale);

} // namespace Tesk
