#pragma once

#include <QByteArrayView>
#include <QSharedData>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace Tesk {

/// The result of a query: a table of texts indexed (row, column), both from 0. Row 0 holds the
/// column names, rows 1 to UpperRow() the data. A result without data rows is the empty table: it
/// has no header row either and its upper row is −1.
///
/// A search may find every product: the cells stand in one block of bytes, and copies share it.
class ResultTable final
{
public:
    ResultTable();
    /// The header row; rows are added behind it.
    explicit ResultTable(const QStringList &columnNames);

    /// One value a column; a null QString stands for NULL.
    void AddRow(const std::vector<QString> &row);
    /// Adds the next cell, in UTF-8; a null view stands for NULL. With the last cell of a row the
    /// row is complete.
    void AddCell(QByteArrayView text);

    int UpperRow() const { return d->upperRow; }
    int ColumnCount() const { return static_cast<int>(d->names.size()); }
    bool HasData() const { return UpperRow() >= 1; }

    /// The cell's text; NULL reads as the empty text. Throws SubscriptError outside the table.
    QString Text(int row, int column) const;
    /// Throws SubscriptError outside the table.
    bool IsNull(int row, int column) const;

private:
    /// Where the cell's text begins. A search holds half a million of these.
    struct Cell
    {
        quint32 begin : 31;
        quint32 isNull : 1;
    };

    struct Data : QSharedData
    {
        QStringList names;
        /// The data rows' cells, row by row; each ends where the next begins.
        std::vector<Cell> cells;
        std::string text;
        int upperRow = -1;
    };

    void RequireCell(int row, int column) const;
    size_t IndexOf(int row, int column) const;

    QSharedDataPointer<Data> d;
};

/// The text in `row` of the column of exactly this name: the last such column where there are
/// several, the empty text where there is none. Throws SubscriptError when the column exists and
/// the row does not, and for any row of the empty table.
QString GetField(const QString &columnName, const ResultTable &table, int row);

} // namespace Tesk
