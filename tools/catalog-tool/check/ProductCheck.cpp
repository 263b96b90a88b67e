#include "check/CatalogueChecker.h"
#include "check/CellChecks.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"
#include "sources/ProgramNeeds.h"

#include <QRegularExpression>

namespace Tesk {

namespace {

// A search puts a blank before the first digit of what the user typed without one.
void CheckArticleNumberForm(const TableRow &row, Problems &problems)
{
    static const QRegularExpression blankMissing(QStringLiteral("^([^ 0-9]+)([0-9][^ ]*)$"));
    const QString artNr = row.Text(QLatin1String("artNr"));
    const QRegularExpressionMatch match = blankMissing.match(artNr);
    if (match.hasMatch())
        problems.Add(row.Source().File(), row.Line(),
                     QStringLiteral("no search finds the article number \"%1\"; write \"%2 %3\", "
                                    "with a blank before the first digit")
                         .arg(artNr, match.captured(1), match.captured(2)));
}

void CheckProductRow(const TableRow &row, Problems &problems)
{
    CheckShownText(row, QLatin1String("artNr"), problems);
    CheckArticleNumberForm(row, problems);
    const QString isSet = row.Text(QLatin1String("isSet"));
    if (isSet != QLatin1String("True") && isSet != QLatin1String("False"))
        problems.Add(row.Source().File(), row.Line(),
                     QStringLiteral("isSet is \"%1\"; write True or False").arg(isSet));
    CheckNumber(row, QLatin1String("length"), true, problems);
    CheckNumber(row, QLatin1String("availability"), false, problems);
    // The program reads a scale as a number even where its picture is missing.
    for (const char *scale : {"img1Scale", "img2Scale", "img3Scale"})
        CheckNumber(row, QLatin1String(scale), false, problems);
}

UniqueKeys CheckProductRows(const CatalogueSources &sources, Problems &problems)
{
    UniqueKeys ids;
    UniqueKeys articleNumbers;
    for (const TableRow &row : sources.Table(QStringLiteral("products_global")).Rows()) {
        const QString id = row.Text(QLatin1String("ID"));
        if (CheckWholeNumber(row, QLatin1String("ID"), 1, problems))
            ids.Add(id, QStringLiteral("the ID %1").arg(id), row, problems);
        const QString artNr = row.Text(QLatin1String("artNr"));
        // Price lists and carts know an article number without its blanks.
        articleNumbers.Add(QString(artNr).remove(QLatin1Char(' ')),
                           QStringLiteral("the article number \"%1\"").arg(artNr), row, problems);
        CheckProductRow(row, problems);
    }
    return ids;
}

UniqueKeys CheckNames(const CatalogueSources &sources, const UniqueKeys &ids, Problems &problems)
{
    UniqueKeys names;
    for (const TableRow &row : sources.Table(QStringLiteral("products_localized")).Rows()) {
        const QString id = row.Text(QLatin1String("ID"));
        const QString code = row.Text(QLatin1String("lang"));
        if (!ids.Contains(id))
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("products_global has no product with the ID %1; correct "
                                        "the ID or remove the row")
                             .arg(id));
        if (!ProgramNeeds::LanguageCodes().contains(code))
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("lang is \"%1\"; write one of %2")
                             .arg(code, ProgramNeeds::LanguageCodes().join(QLatin1String(", "))));
        names.Add(id + QLatin1Char(' ') + code,
                  QStringLiteral("the product %1 in the language %2").arg(id, code), row, problems);
        CheckShownText(row, QLatin1String("name"), problems);
    }
    return names;
}

} // namespace

void CheckProducts(const CatalogueSources &sources, Problems &problems)
{
    const UniqueKeys ids = CheckProductRows(sources, problems);
    const UniqueKeys names = CheckNames(sources, ids, problems);
    for (const TableRow &row : sources.Table(QStringLiteral("products_global")).Rows()) {
        for (const QString &code : ProgramNeeds::LanguageCodes()) {
            const QString id = row.Text(QLatin1String("ID"));
            if (!names.Contains(id + QLatin1Char(' ') + code))
                problems.Add(row.Source().File(), row.Line(),
                             QStringLiteral("the product %1 has no name in the language %2 and "
                                            "would not be found there; add its row to "
                                            "products_localized.tsv")
                                 .arg(id, code));
        }
    }
}

} // namespace Tesk
