#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

struct sqlite3;

namespace Tesk::Database {

/// The type with which a table of an imported catalogue declares the column whose texts are its row
/// ids in decimal.
inline constexpr auto RowIdType = "ROW ID TEXT";

/// How the texts of a column compare. A column of a version 3 file follows rules of its own.
enum class ColumnClass { Numeric, Text, Other };

struct ColumnInfo
{
    QByteArray name;
    ColumnClass columnClass = ColumnClass::Other;
    bool isRowId = false; ///< whether it is of RowIdType
};

struct TableInfo
{
    QByteArray name;
    QList<ColumnInfo> columns;
    bool isView = false;

    const ColumnInfo *FindColumn(const QByteArray &columnName) const;
};

/// The tables and views of an open database. Names are UTF-8 and found whatever their ASCII case.
class TableSchema final
{
public:
    TableSchema() = default;
    /// Throws FileError for a database that cannot be read.
    explicit TableSchema(sqlite3 *connection);

    const TableInfo *FindTable(const QByteArray &name) const;

    /// A name for the row id that no column of any table bears; empty when there is none.
    const QByteArray &RowIdName() const { return rowIdName; }

private:
    QHash<QByteArray, TableInfo> tables;
    QByteArray rowIdName;
};

/// `name` with A to Z in lower case, as SQL compares names.
QByteArray FoldedName(const QByteArray &name);

} // namespace Tesk::Database
