#pragma once

#include "core/ResultTable.h"

#include <QLocale>
#include <QString>

#include <functional>

namespace Tesk {

class SQLiteWrapper;

/// Every question that the program asks of the catalogue. Arguments go into the SQL text exactly
/// as received: ids as decimal text, the user's text unescaped.
class CatalogueQueries final
{
public:
    /// `currentCode` answers the current language's code at the moment a statement is built;
    /// `userLocale` is the one in whose notation the user types lengths.
    CatalogueQueries(const SQLiteWrapper &catalogue, std::function<QString()> currentCode,
                     const QLocale &userLocale = QLocale::system());

    ResultTable QueryCategories() const;
    ResultTable QueryProductsOfCategory(const QString &categoryId) const;
    ResultTable QuerySetMembers(const QString &setId) const;
    ResultTable QueryProduct(const QString &productId) const;

    /// The first matching product's id, "-1" without a match. Throws ConversionError for an id
    /// outside 16 bits.
    QString FindProductIdsByArtNr(const QString &pattern) const;
    QString FindProductIdsByRefNo(const QString &pattern) const;
    /// The first matching product's article number, the empty text without a match.
    QString FindArtNrsByRefNo(const QString &pattern) const;

    bool HasSingleProducts(const QString &categoryId) const;

    /// `length` is what the user typed, `unit` is "mm", "cm" or "inch". Without `tolerance` a
    /// search by length that finds nothing is repeated with it.
    ResultTable SearchProducts(const QString &description, const QString &artNr,
                               const QString &length, const QString &unit, bool tolerance) const;
    ResultTable SearchCompetition(const QString &referenceNumber, const QString &company) const;
    ResultTable SearchByArtNr(const QString &artNr) const;
    ResultTable SearchByDescription(const QString &text) const;

private:
    const SQLiteWrapper &database;
    std::function<QString()> languageCode;
    QLocale locale;
};

} // namespace Tesk
