#include "core/ResultTable.h"

#include "base/Errors.h"

namespace Tesk {

ResultTable::ResultTable(const QStringList &columnNames)
{
    rows.emplace_back(columnNames.begin(), columnNames.end());
}

void ResultTable::AddRow(std::vector<QString> row)
{
    rows.push_back(std::move(row));
}

int ResultTable::ColumnCount() const
{
    return rows.empty() ? 0 : static_cast<int>(rows.front().size());
}

QString ResultTable::Text(int row, int column) const
{
    const QString &cell = Cell(row, column);
    return cell.isNull() ? QLatin1String("") : cell;
}

bool ResultTable::IsNull(int row, int column) const
{
    return Cell(row, column).isNull();
}

const QString &ResultTable::Cell(int row, int column) const
{
    if (row < 0 || row > UpperRow() || column < 0 || column >= ColumnCount())
        throw SubscriptError(
            QStringLiteral("The result has no cell in row %1, column %2.").arg(row).arg(column));
    return rows[static_cast<size_t>(row)][static_cast<size_t>(column)];
}

QString GetField(const QString &columnName, const ResultTable &table, int row)
{
    if (table.UpperRow() < 0)
        throw SubscriptError(QStringLiteral("The result holds no rows."));
    QString text = QLatin1String("");
    for (int column = 0; column < table.ColumnCount(); ++column) {
        if (table.Text(0, column) == columnName)
            text = table.Text(row, column);
    }
    return text;
}

} // namespace Tesk
