#include "core/CatalogueQueries.h"

#include "base/Numbers.h"
#include "core/SQLiteWrapper.h"
#include "core/queries/ArtNr.h"
#include "core/queries/ProductSearch.h"
#include "core/queries/Statements.h"

#include <utility>

namespace Tesk {

namespace {

/// The id in the first row as decimal text, "-1" without a row. Throws ConversionError.
QString FirstId(const ResultTable &table)
{
    return QString::number(table.HasData() ? ToInt16(table.Text(1, 0)) : qint16{-1});
}

} // namespace

CatalogueQueries::CatalogueQueries(const SQLiteWrapper &catalogue,
                                   std::function<QString()> currentCode, const QLocale &userLocale)
    : database(catalogue)
    , languageCode(std::move(currentCode))
    , locale(userLocale)
{}

ResultTable CatalogueQueries::QueryCategories() const
{
    return database.GetTable(Statements::Categories(languageCode()));
}

ResultTable CatalogueQueries::QueryProductsOfCategory(const QString &categoryId) const
{
    return database.GetTable(Statements::ProductsOfCategory(languageCode(), categoryId));
}

ResultTable CatalogueQueries::QuerySetMembers(const QString &setId) const
{
    return database.GetTable(Statements::SetMembers(languageCode(), setId));
}

ResultTable CatalogueQueries::QueryProduct(const QString &productId) const
{
    return database.GetTable(Statements::Product(languageCode(), productId));
}

QString CatalogueQueries::FindProductIdsByArtNr(const QString &pattern) const
{
    return FirstId(database.GetTable(Statements::ProductIdsByArtNr(pattern)));
}

QString CatalogueQueries::FindProductIdsByRefNo(const QString &pattern) const
{
    return FirstId(database.GetTable(Statements::ProductIdsByRefNo(pattern)));
}

QString CatalogueQueries::FindArtNrsByRefNo(const QString &pattern) const
{
    const ResultTable table = database.GetTable(Statements::ArtNrsByRefNo(pattern));
    return table.HasData() ? table.Text(1, 0) : QString(QLatin1String(""));
}

bool CatalogueQueries::HasSingleProducts(const QString &categoryId) const
{
    // A search's results belong to no category: a statement without the id would only be reported
    // as a wrong one.
    if (categoryId.isEmpty())
        return false;
    const ResultTable table = database.GetTable(Statements::SingleProductCount(categoryId));
    return table.HasData() && ToDouble(table.Text(1, 0)) > 0;
}

ResultTable CatalogueQueries::SearchProducts(const QString &description, const QString &artNr,
                                             const QString &length, const QString &unit,
                                             bool tolerance) const
{
    const SearchCondition condition =
        SearchConditionOf({description, artNr, length, unit, tolerance}, locale);
    if (condition.isEmpty)
        return {};
    ResultTable table =
        database.GetTable(Statements::ProductSearch(languageCode(), condition.whereClause));
    if (!table.HasData() && !tolerance && condition.usesLength)
        return SearchProducts(description, artNr, length, unit, true);
    return table;
}

ResultTable CatalogueQueries::SearchCompetition(const QString &referenceNumber,
                                                const QString &company) const
{
    return database.GetTable(Statements::Competition(languageCode(), referenceNumber, company));
}

ResultTable CatalogueQueries::SearchByArtNr(const QString &artNr) const
{
    return database.GetTable(Statements::ProductsByArtNr(languageCode(), NormaliseArtNr(artNr)));
}

ResultTable CatalogueQueries::SearchByDescription(const QString &text) const
{
    return SearchProducts(text, QString(), QStringLiteral("0"), QStringLiteral("mm"), true);
}

} // namespace Tesk
