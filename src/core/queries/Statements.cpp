#include "core/queries/Statements.h"

namespace Tesk::Statements {

namespace {

/// A product with its texts in one language.
QString JoinLocalized(const QString &code)
{
    return QLatin1String("INNER JOIN products_localized l ON (p.ID=l.ID AND l.lang='") + code +
           QLatin1String("')");
}

} // namespace

QString Categories(const QString &code)
{
    return QLatin1String("SELECT ID, TREE_ID, parent, title_") + code +
           QLatin1String(" FROM categories ORDER BY firstLevelId,"
                         " catLevel2, catLevel3, catLevel4, catLevel5, title_") +
           code;
}

QString ProductsOfCategory(const QString &code, const QString &categoryId)
{
    return QLatin1String("SELECT p.*, l.name, l.form FROM products2categories c"
                         " INNER JOIN products_global p ON (c.prodID=p.ID AND c.catID=") +
           categoryId + QLatin1String(") ") + JoinLocalized(code) +
           QLatin1String(" order by p.artNr");
}

QString SetMembers(const QString &code, const QString &setId)
{
    return QLatin1String("SELECT p.*, l.name, l.form, s.iAmount FROM products2sets s"
                         " INNER JOIN products_global p ON (s.iProdGlobId=p.ID AND s.iSetID=") +
           setId + QLatin1String(") ") + JoinLocalized(code) + QLatin1String(" order by s.iOrder");
}

QString Product(const QString &code, const QString &productId)
{
    return QLatin1String("SELECT p.*, l.name, l.form FROM products_global p ") +
           JoinLocalized(code) + QLatin1String(" WHERE p.ID=") + productId;
}

QString ProductIdsByArtNr(const QString &pattern)
{
    return QLatin1String("SELECT p.ID FROM products_global p WHERE p.artNr LIKE '") + pattern +
           QLatin1String("'");
}

QString ProductIdsByRefNo(const QString &pattern)
{
    return QLatin1String("SELECT p.ID FROM reference_numbers p WHERE p.sRefNo LIKE '") + pattern +
           QLatin1String("'");
}

QString ArtNrsByRefNo(const QString &pattern)
{
    return QLatin1String("SELECT p.artNr FROM products_global p"
                         " inner join reference_numbers rn on p.ID=rn.ID"
                         " WHERE rn.sRefNo LIKE '") +
           pattern + QLatin1String("'");
}

QString SingleProductCount(const QString &categoryId)
{
    return QLatin1String("SELECT count(*) as res FROM products2categories c"
                         " INNER JOIN products_global p ON (c.prodID=p.ID AND c.catID=") +
           categoryId + QLatin1String(") where p.isSet like 'False'");
}

QString ProductSearch(const QString &code, const QString &whereClause)
{
    return QLatin1String("SELECT p.*, l.name FROM products_global p ") + JoinLocalized(code) +
           QLatin1String(" ") + whereClause + QLatin1String(" order by p.artNr");
}

QString Competition(const QString &code, const QString &referenceNumber, const QString &company)
{
    QString sql = QLatin1String("SELECT p.*, l.name FROM products_global p ") +
                  JoinLocalized(code) +
                  QLatin1String(" inner join reference_numbers rn on p.ID=rn.ID"
                                " WHERE rn.sRefNo like '%") +
                  referenceNumber + QLatin1String("%'");
    if (!company.isEmpty())
        sql += QLatin1String(" AND rn.sUnternehmen = '") + company + QLatin1String("'");
    return sql + QLatin1String(" order by p.artNr");
}

QString ProductsByArtNr(const QString &code, const QString &artNr)
{
    return ProductSearch(code,
                         QLatin1String(" WHERE p.ArtNr LIKE '%") + artNr + QLatin1String("%'"));
}

} // namespace Tesk::Statements
