#include "check/CatalogueChecker.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"
#include "sources/ProgramNeeds.h"

#include <algorithm>

namespace Tesk {

namespace {

bool HasColumn(const Sqlite2::Table &table, const QString &column)
{
    return std::ranges::find(table.columns, column.toStdString(), &Sqlite2::Column::name) !=
           table.columns.end();
}

void CheckNeededTables(const CatalogueSources &sources, Problems &problems)
{
    for (const ProgramNeeds::Table &needed : ProgramNeeds::Tables()) {
        const Sqlite2::Table *table = sources.Schema().FindTable(needed.name);
        if (!table) {
            problems.Add(
                SchemaSource::File(), 0,
                QStringLiteral("the program reads the table \"%1\"; declare it").arg(needed.name));
            continue;
        }
        for (const QString &column : needed.columns) {
            if (!HasColumn(*table, column))
                problems.Add(SchemaSource::File(), 0,
                             QStringLiteral("the program reads the column \"%1\" of the table "
                                            "\"%2\"; declare it")
                                 .arg(column, needed.name));
        }
    }
}

// The pages take a product's id from the first column of its row.
void CheckFirstColumn(const CatalogueSources &sources, Problems &problems)
{
    const QString name = QStringLiteral("products_global");
    const Sqlite2::Table *table = sources.Schema().FindTable(name);
    if (table && !table->columns.empty() && table->columns.front().name != "ID")
        problems.Add(SchemaSource::File(), 0,
                     QStringLiteral("the first column of \"%1\" is \"%2\"; put ID first, where the "
                                    "program looks for a product's id")
                         .arg(name, QString::fromStdString(table->columns.front().name)));
}

void CheckTableFile(const CatalogueSources &sources, const Sqlite2::Table &table,
                    Problems &problems)
{
    const QString name = QString::fromStdString(table.name);
    if (!sources.Tables().contains(name)) {
        problems.Add(QStringLiteral("tables/%1.tsv").arg(name), 0,
                     QStringLiteral("the file is missing; add it, or remove the table from "
                                    "schema.sql"));
        return;
    }
    const TableSource &source = sources.Table(name);
    for (const Sqlite2::Column &column : table.columns) {
        const QString columnName = QString::fromStdString(column.name);
        if (!source.Columns().contains(columnName))
            problems.Add(source.File(), 1,
                         QStringLiteral("the column \"%1\" of schema.sql is missing; add it")
                             .arg(columnName));
    }
    for (const QString &column : source.Columns()) {
        if (!HasColumn(table, column))
            problems.Add(source.File(), 1,
                         QStringLiteral("schema.sql declares no column \"%1\"; remove it or "
                                        "declare it")
                             .arg(column));
    }
}

} // namespace

void CheckSchema(const CatalogueSources &sources, Problems &problems)
{
    CheckNeededTables(sources, problems);
    CheckFirstColumn(sources, problems);
    for (const Sqlite2::Table &table : sources.Schema().Tables())
        CheckTableFile(sources, table, problems);
    for (const QString &name : sources.Tables().keys()) {
        if (!sources.Schema().FindTable(name))
            problems.Add(sources.Table(name).File(), 0,
                         QStringLiteral("schema.sql declares no table \"%1\"; declare it or remove "
                                        "the file")
                             .arg(name));
    }
}

} // namespace Tesk
