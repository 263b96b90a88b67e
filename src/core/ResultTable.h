#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace Tesk {

/// The result of a query: a table of texts indexed (row, column), both from 0. Row 0 holds the
/// column names, rows 1 to UpperRow() the data. A result without data rows is the empty table: it
/// has no header row either and its upper row is −1.
class ResultTable
{
public:
    ResultTable() = default;
    /// The header row; rows are added behind it.
    explicit ResultTable(const QStringList &columnNames);

    /// One value a column; a null QString stands for NULL.
    void AddRow(std::vector<QString> row);

    int UpperRow() const { return static_cast<int>(rows.size()) - 1; }
    int ColumnCount() const;
    bool HasData() const { return UpperRow() >= 1; }

    /// The cell's text; NULL reads as the empty text. Throws SubscriptError outside the table.
    QString Text(int row, int column) const;
    /// Throws SubscriptError outside the table.
    bool IsNull(int row, int column) const;

private:
    const QString &Cell(int row, int column) const;

    std::vector<std::vector<QString>> rows;
};

/// The text in `row` of the column of exactly this name: the last such column where there are
/// several, the empty text where there is none. Throws SubscriptError when the column exists and
/// the row does not, and for any row of the empty table.
QString GetField(const QString &columnName, const ResultTable &table, int row);

} // namespace Tesk
