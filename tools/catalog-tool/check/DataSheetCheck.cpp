#include "check/CatalogueChecker.h"
#include "sources/CatalogueSources.h"
#include "sources/DataSheetPlan.h"
#include "sources/Problems.h"
#include "sources/References.h"
#include "sources/SvgSource.h"

#include <QHash>
#include <QSet>

namespace Tesk {

void CheckDataSheetNames(const CatalogueSources &sources, Problems &problems)
{
    QSet<QString> articleNumbers;
    for (const TableRow &row : sources.Table(QStringLiteral("products_global")).Rows())
        articleNumbers.insert(row.Text(QLatin1String("artNr")));

    for (const DataSheet &sheet : PlanDataSheets(sources)) {
        if (!articleNumbers.contains(sheet.ArticleNumber()))
            problems.Add(sheet.source, 0,
                         QStringLiteral("the name stands for the article number \"%1\", which no "
                                        "product has; rename the file (a \"_\" stands for a "
                                        "blank, a \"-\" for a \"/\", and a number with a \"-\" "
                                        "can have no data sheet)")
                             .arg(sheet.ArticleNumber()));
    }
}

void CheckDataSheets(const CatalogueSources &sources, Problems &problems)
{
    QHash<QString, QString> sourcesByNumber;
    for (const DataSheet &sheet : PlanDataSheets(sources)) {
        const QString number = sheet.ArticleNumber();
        if (sourcesByNumber.contains(number))
            problems.Add(sheet.source, 0,
                         QStringLiteral("\"%1\" stands for the same article number \"%2\", and the "
                                        "program would not start; remove one of them")
                             .arg(sourcesByNumber.value(number), number));
        sourcesByNumber.insert(number, sheet.source);
        if (!sheet.isPrinted)
            continue;

        for (const Reference &reference :
             FindReferences(sources.Bytes(sheet.source), sheet.source)) {
            if (!sources.Folder().exists(reference.target))
                problems.Add(sheet.source, reference.line,
                             QStringLiteral("there is no file \"%1\"; correct the reference or add "
                                            "the file")
                                 .arg(reference.target));
            else if (reference.target.endsWith(QLatin1String(".svg")))
                SvgSource::Parse(sources.Bytes(reference.target), reference.target, problems);
        }
    }
}

} // namespace Tesk
