#include "core/ResultTable.h"

#include "base/Errors.h"

namespace Tesk {

ResultTable::ResultTable()
    : d(new Data)
{}

ResultTable::ResultTable(const QStringList &columnNames)
    : ResultTable()
{
    d->names = columnNames;
    d->upperRow = 0;
}

void ResultTable::AddRow(const std::vector<QString> &row)
{
    for (const QString &cell : row)
        AddCell(cell.isNull() ? QByteArrayView() : QByteArrayView(cell.toUtf8()));
}

void ResultTable::AddCell(QByteArrayView text)
{
    Data &data = *d;
    constexpr size_t mostBytes = 0x7fffffff;
    if (data.text.size() > mostBytes)
        throw CatalogueError(QStringLiteral("The result is too large to hold."));
    data.cells.push_back(Cell{static_cast<quint32>(data.text.size() & mostBytes), text.isNull()});
    data.text.append(text.data(), static_cast<size_t>(text.size()));
    const auto columns = static_cast<size_t>(data.names.size());
    if (data.cells.size() == columns * static_cast<size_t>(data.upperRow + 1))
        ++data.upperRow;
}

QString ResultTable::Text(int row, int column) const
{
    RequireCell(row, column);
    if (row == 0)
        return d->names[column];
    const size_t index = IndexOf(row, column);
    const size_t begin = d->cells[index].begin;
    const size_t end = index + 1 < d->cells.size() ? d->cells[index + 1].begin : d->text.size();
    if (begin == end)
        return QLatin1String("");
    return QString::fromUtf8(d->text.data() + begin, static_cast<qsizetype>(end - begin));
}

bool ResultTable::IsNull(int row, int column) const
{
    RequireCell(row, column);
    return row > 0 && d->cells[IndexOf(row, column)].isNull;
}

void ResultTable::RequireCell(int row, int column) const
{
    if (row < 0 || row > UpperRow() || column < 0 || column >= ColumnCount())
        throw SubscriptError(
            QStringLiteral("The result has no cell in row %1, column %2.").arg(row).arg(column));
}

size_t ResultTable::IndexOf(int row, int column) const
{
    return static_cast<size_t>(row - 1) * static_cast<size_t>(d->names.size()) +
           static_cast<size_t>(column);
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
