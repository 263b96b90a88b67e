#include "check/CellChecks.h"

#include "sources/Problems.h"

#include <QRegularExpression>

#include <limits>

namespace Tesk {

namespace {

constexpr int LargestNumber = std::numeric_limits<qint16>::max();

} // namespace

std::optional<int> CheckWholeNumber(const TableRow &row, QLatin1String column, int least,
                                    Problems &problems)
{
    // Written as the program writes numbers: ids are also compared as texts.
    static const QRegularExpression form(QStringLiteral("^(0|[1-9][0-9]*)$"));
    const QString text = row.Text(column);
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (isNumber && form.match(text).hasMatch() && number >= least && number <= LargestNumber)
        return number;
    problems.Add(row.Source().File(), row.Line(),
                 QStringLiteral("%1 is \"%2\"; write a whole number from %3 to %4")
                     .arg(column, text)
                     .arg(least)
                     .arg(LargestNumber));
    return std::nullopt;
}

void CheckNumber(const TableRow &row, QLatin1String column, bool isOptional, Problems &problems)
{
    static const QRegularExpression form(QStringLiteral("^-?[0-9]+(\\.[0-9]+)?$"));
    const Cell &cell = row.At(column);
    if ((!cell && isOptional) || (cell && form.match(*cell).hasMatch()))
        return;
    problems.Add(row.Source().File(), row.Line(),
                 QStringLiteral("%1 is \"%2\"; write a number with a decimal point, 0 for none")
                     .arg(column, cell.value_or(QStringLiteral("\\N"))));
}

void CheckShownText(const TableRow &row, QLatin1String column, Problems &problems)
{
    static const QRegularExpression markup(QStringLiteral("['\"<>]|&(?=[A-Za-z#])"));
    const QString text = row.Text(column);
    if (text.trimmed().isEmpty()) {
        problems.Add(row.Source().File(), row.Line(),
                     QStringLiteral("%1 is empty; write a text").arg(column));
        return;
    }
    if (text != text.trimmed())
        problems.Add(row.Source().File(), row.Line(),
                     QStringLiteral("%1 has blanks around it; remove them").arg(column));
    const QRegularExpressionMatch match = markup.match(text);
    if (match.hasMatch())
        problems.Add(row.Source().File(), row.Line(),
                     QStringLiteral("%1 holds the character %2, which pages read as a part of "
                                    "their own code; write it another way (\u2019 \u201C \u201D)")
                         .arg(column, match.captured()));
}

void UniqueKeys::Add(const QString &key, const QString &what, const TableRow &row,
                     Problems &problems)
{
    const auto first = lines.constFind(key);
    if (first == lines.constEnd()) {
        lines.insert(key, row.Line());
        return;
    }
    problems.Add(
        row.Source().File(), row.Line(),
        QStringLiteral("%1 stands in line %2 already; keep one of the two").arg(what).arg(*first));
}

} // namespace Tesk
