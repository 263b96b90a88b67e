#include "check/CatalogueChecker.h"
#include "check/CellChecks.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"
#include "sources/ProgramNeeds.h"

#include <QHash>
#include <QSet>

namespace Tesk {

namespace {

/// What the relations refer to, by id as text.
struct Known
{
    explicit Known(const CatalogueSources &sources)
    {
        for (const TableRow &row : sources.Table(QStringLiteral("products_global")).Rows())
            isSetById.insert(row.Text(QLatin1String("ID")),
                             row.Text(QLatin1String("isSet")) == QLatin1String("True"));

        QSet<QString> parents;
        const std::vector<TableRow> rows = sources.Table(QStringLiteral("categories")).Rows();
        for (const TableRow &row : rows)
            parents.insert(row.Text(QLatin1String("parent")));
        for (const TableRow &row : rows)
            isLeafById.insert(row.Text(QLatin1String("ID")),
                              !parents.contains(row.Text(QLatin1String("TREE_ID"))));
    }

    QHash<QString, bool> isSetById;
    QHash<QString, bool> isLeafById;
};

bool CheckProductId(const TableRow &row, QLatin1String column, const Known &known,
                    Problems &problems)
{
    const QString id = row.Text(column);
    if (known.isSetById.contains(id))
        return true;
    problems.Add(row.Source().File(), row.Line(),
                 QStringLiteral("products_global has no product with the ID \"%1\" of %2; correct "
                                "it or remove the row")
                     .arg(id, column));
    return false;
}

void CheckMemberships(const CatalogueSources &sources, const Known &known, Problems &problems)
{
    UniqueKeys pairs;
    for (const TableRow &row : sources.Table(QStringLiteral("products2categories")).Rows()) {
        CheckProductId(row, QLatin1String("prodID"), known, problems);
        const QString product = row.Text(QLatin1String("prodID"));
        const QString category = row.Text(QLatin1String("catID"));
        const auto leaf = known.isLeafById.constFind(category);
        if (leaf == known.isLeafById.constEnd())
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("categories has no category with the ID \"%1\" of catID; "
                                        "correct it or remove the row")
                             .arg(category));
        else if (!*leaf)
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("the category %1 has sub-categories, so its products are "
                                        "never listed; put the product into one of them")
                             .arg(category));
        pairs.Add(product + QLatin1Char(' ') + category,
                  QStringLiteral("the product %1 in the category %2").arg(product, category), row,
                  problems);
    }
}

void CheckSets(const CatalogueSources &sources, const Known &known, Problems &problems)
{
    UniqueKeys pairs;
    QSet<QString> filledSets;
    for (const TableRow &row : sources.Table(QStringLiteral("products2sets")).Rows()) {
        const QString set = row.Text(QLatin1String("iSetID"));
        const QString member = row.Text(QLatin1String("iProdGlobId"));
        if (CheckProductId(row, QLatin1String("iSetID"), known, problems) &&
            !known.isSetById.value(set))
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("the product %1 of iSetID is no set; set its isSet to True "
                                        "or remove the row")
                             .arg(set));
        if (CheckProductId(row, QLatin1String("iProdGlobId"), known, problems) &&
            known.isSetById.value(member))
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("the member %1 is a set itself; name its members instead")
                             .arg(member));
        CheckWholeNumber(row, QLatin1String("iAmount"), 1, problems);
        CheckWholeNumber(row, QLatin1String("iOrder"), 0, problems);
        pairs.Add(set + QLatin1Char(' ') + member,
                  QStringLiteral("the member %1 of the set %2").arg(member, set), row, problems);
        filledSets.insert(set);
    }

    for (const TableRow &row : sources.Table(QStringLiteral("products_global")).Rows()) {
        const QString id = row.Text(QLatin1String("ID"));
        if (known.isSetById.value(id) && !filledSets.contains(id))
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("the set %1 has no members; add them to "
                                        "products2sets.tsv")
                             .arg(id));
    }
}

void CheckReferenceNumbers(const CatalogueSources &sources, const Known &known, Problems &problems)
{
    UniqueKeys entries;
    for (const TableRow &row : sources.Table(QStringLiteral("reference_numbers")).Rows()) {
        CheckProductId(row, QLatin1String("ID"), known, problems);
        const QString number = row.Text(QLatin1String("sRefNo"));
        const QString company = row.Text(QLatin1String("sUnternehmen"));
        // The search takes the blanks out of what the user types.
        if (number.isEmpty() || number.contains(QLatin1Char(' ')))
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("no search finds the reference number \"%1\"; write it "
                                        "without blanks")
                             .arg(number));
        if (!ProgramNeeds::Competitors().contains(company))
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("the search offers no company \"%1\"; write one of %2")
                             .arg(company, ProgramNeeds::Competitors().join(QLatin1String(", "))));
        const QString id = row.Text(QLatin1String("ID"));
        entries.Add(id + QLatin1Char(' ') + number + QLatin1Char(' ') + company,
                    QStringLiteral("the reference number %1 of %2 for the product %3")
                        .arg(number, company, id),
                    row, problems);
    }
}

} // namespace

void CheckRelations(const CatalogueSources &sources, Problems &problems)
{
    const Known known(sources);
    CheckMemberships(sources, known, problems);
    CheckSets(sources, known, problems);
    CheckReferenceNumbers(sources, known, problems);
}

} // namespace Tesk
