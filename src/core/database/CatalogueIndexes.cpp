#include "core/database/CatalogueIndexes.h"

#include "core/database/Collations.h"
#include "core/database/Connection.h"

#include <algorithm>
#include <vector>

namespace Tesk::Database {

namespace {

/// An index by which statements find the rows of a table.
struct IndexDefinition
{
    const char *table;
    QByteArrayList columns;
    /// How many rows share the first column's value, at a guess: the planner goes by it. 0 stands
    /// for one language's share of the rows.
    qint64 rowsOfAKey;
    /// Whether statements compare the first column with a number.
    bool isComparedWithNumbers;
};

const std::vector<IndexDefinition> &Definitions()
{
    // The columns behind the first are what statements ask for next, so that the index spares them
    // the row. A search by words reads nothing but one language's part of the localized texts.
    static const std::vector<IndexDefinition> definitions{
        {"products_global", {"ID", "isSet"}, 1, true},
        {"products_global", {"length", "ID"}, 200, true},
        {"products_localized", {"lang", "ID", "name", "form"}, 0, false},
        {"products2categories", {"catID", "prodID"}, 20, true},
        {"products2sets", {"iSetID"}, 10, true},
        {"reference_numbers", {"ID"}, 2, false},
    };
    return definitions;
}

QByteArray ColumnTerm(const ColumnInfo &column, bool isByValue)
{
    const QByteArray name = Quoted(column.name);
    return isByValue ? name + " COLLATE " + NumericCollation : name;
}

QByteArray StatisticsOf(const IndexDefinition &definition, qint64 rowCount)
{
    constexpr qint64 languageCount = 5;
    const qint64 share =
        definition.rowsOfAKey > 0 ? definition.rowsOfAKey : rowCount / languageCount;
    QByteArrayList counts{QByteArray::number(rowCount),
                          QByteArray::number(std::clamp<qint64>(share, 1, rowCount))};
    while (counts.size() <= definition.columns.size())
        counts.append("1");
    return counts.join(' ');
}

} // namespace

QList<IndexPlan> IndexPlansOf(const TableInfo &table, qint64 rowCount)
{
    QList<IndexPlan> plans;
    for (const IndexDefinition &definition : Definitions()) {
        const auto hasColumn = [&table](const QByteArray &name) { return table.FindColumn(name); };
        if (qstricmp(table.name, definition.table) != 0 ||
            !std::all_of(definition.columns.begin(), definition.columns.end(), hasColumn))
            continue;

        const ColumnInfo &firstColumn = *table.FindColumn(definition.columns.front());
        // The table itself is the index of its row ids.
        if (firstColumn.isRowId)
            continue;
        // A text column has two orders: its own for joins, that of numbers for comparisons.
        const bool isText = firstColumn.columnClass == ColumnClass::Text;
        QList<bool> orders{false};
        if (isText && definition.isComparedWithNumbers)
            orders.append(true);
        for (const bool isByValue : orders) {
            QByteArrayList terms;
            for (const QByteArray &name : definition.columns)
                terms.append(ColumnTerm(*table.FindColumn(name), isByValue));
            QByteArray indexName =
                "tesk_" + FoldedName(table.name) + '_' + definition.columns.front();
            if (isByValue)
                indexName += "_number";
            plans.append({"CREATE INDEX " + Quoted(indexName) + " ON " + Quoted(table.name) + " (" +
                              terms.join(", ") + ')',
                          "INSERT INTO sqlite_stat1 VALUES ('" + table.name + "', '" + indexName +
                              "', '" + StatisticsOf(definition, rowCount) + "')"});
        }
    }
    return plans;
}

} // namespace Tesk::Database
