#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class QDir;

namespace Tesk {

class Problems;
class TableSource;

/// A row's cell: its text, or nothing for NULL (written `\N`).
using Cell = std::optional<QString>;

/// One row of a table, for as long as the table lives.
class TableRow final
{
public:
    TableRow(const TableSource &table, int row);

    int Line() const;
    /// Nothing for NULL and for a column that the table lacks.
    const Cell &At(QLatin1String column) const;
    const Cell &At(int column) const;
    /// The cell's text; empty where At() has nothing.
    QString Text(QLatin1String column) const;

    const TableSource &Source() const { return *table; }

private:
    const TableSource *table;
    int row;
};

/// A table as text: a line of column names, then a line a row, cells parted by tabs.
class TableSource final
{
public:
    /// A table without columns and rows.
    TableSource() = default;

    /// Lines with a wrong number of cells, doubled column names and characters outside the code
    /// page are problems; rows with a wrong number of cells are left out.
    TableSource(const QDir &folder, const QString &file, Problems &problems);

    const QString &File() const { return file; }
    const QStringList &Columns() const { return columns; }
    std::vector<TableRow> Rows() const;

private:
    friend class TableRow;
    struct StoredRow
    {
        int line = 0;
        std::vector<Cell> cells;
    };

    void ReadHeader(const QString &line, Problems &problems);
    void ReadRow(int line, const QString &text, Problems &problems);

    QString file;
    QStringList columns;
    QHash<QString, int> columnIndex;
    std::vector<StoredRow> rows;
};

} // namespace Tesk
