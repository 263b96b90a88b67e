#include "check/CatalogueChecker.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"

#include <QHash>
#include <QSet>

namespace Tesk {

void CheckPrices(const CatalogueSources &sources, Problems &problems)
{
    QSet<QString> productKeys;
    for (const TableRow &row : sources.Table(QStringLiteral("products_global")).Rows())
        productKeys.insert(row.Text(QLatin1String("artNr")).remove(QLatin1Char(' ')));

    const QString file = PriceSource::File();
    QHash<QString, int> lines;
    for (const Price &price : sources.PriceList().Prices()) {
        if (!productKeys.contains(price.Key()))
            problems.Add(file, price.line,
                         QStringLiteral("no product has the article number \"%1\"; correct it or "
                                        "remove the line")
                             .arg(price.artNr));
        if (price.price.trimmed().isEmpty())
            problems.Add(file, price.line,
                         QStringLiteral("the price of \"%1\" is empty; write it or remove the line")
                             .arg(price.artNr));
        if (lines.contains(price.Key()))
            problems.Add(file, price.line,
                         QStringLiteral("the article number \"%1\" stands in line %2 already, and "
                                        "the list would not load; keep one of the two")
                             .arg(price.artNr)
                             .arg(lines.value(price.Key())));
        else
            lines.insert(price.Key(), price.line);
    }
}

} // namespace Tesk
