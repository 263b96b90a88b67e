#include "sql/TableText.h"

#include "core/ResultTable.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <vector>

namespace Tesk {

namespace {

const QString ColumnGap = QStringLiteral("  ");

QString ShownCell(const ResultTable &table, int row, int column)
{
    if (table.IsNull(row, column))
        return QStringLiteral("NULL");
    return table.Text(row, column)
        .replace(u'\n', QLatin1String("\\n"))
        .replace(u'\r', QLatin1String("\\r"))
        .replace(u'\t', QLatin1String("\\t"));
}

QStringList ShownRow(const ResultTable &table, int row)
{
    QStringList cells;
    for (int column = 0; column < table.ColumnCount(); ++column)
        cells.append(ShownCell(table, row, column));
    return cells;
}

/// The cells at their columns' widths, without blanks at the end.
QString Line(QStringList cells, const std::vector<qsizetype> &widths)
{
    for (qsizetype column = 0; column + 1 < cells.size(); ++column)
        cells[column] = cells[column].leftJustified(widths[static_cast<size_t>(column)]);
    QString line = cells.join(ColumnGap);
    while (line.endsWith(u' '))
        line.chop(1);
    return line + u'\n';
}

} // namespace

QString AlignedText(const ResultTable &table)
{
    std::vector<qsizetype> widths(static_cast<size_t>(table.ColumnCount()), 0);
    for (int row = 0; row <= table.UpperRow(); ++row) {
        const QStringList cells = ShownRow(table, row);
        std::transform(
            widths.begin(), widths.end(), cells.begin(), widths.begin(),
            [](qsizetype width, const QString &cell) { return std::max(width, cell.size()); });
    }
    QStringList rule;
    for (const qsizetype width : widths)
        rule.append(QString(width, u'-'));

    QString text;
    for (int row = 0; row <= table.UpperRow(); ++row) {
        text += Line(ShownRow(table, row), widths);
        if (row == 0)
            text += Line(rule, widths);
    }
    return text;
}

QString JsonText(const ResultTable &table)
{
    QStringList rows;
    for (int row = 0; row <= table.UpperRow(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < table.ColumnCount(); ++column)
            cells.append(table.IsNull(row, column) ? QJsonValue() : table.Text(row, column));
        rows.append(QString::fromUtf8(QJsonDocument(cells).toJson(QJsonDocument::Compact)));
    }
    return u'[' + rows.join(QLatin1String(",\n")) + QLatin1String("]\n");
}

} // namespace Tesk
