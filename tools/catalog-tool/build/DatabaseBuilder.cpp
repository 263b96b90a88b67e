#include "build/DatabaseBuilder.h"

#include "base/CodePage.h"
#include "base/Errors.h"
#include "sources/CatalogueSources.h"
#include "sqlite2/Error.h"
#include "sqlite2/Writer.h"

#include <QFileInfo>

namespace Tesk {

namespace {

std::string Bytes(const QString &text)
{
    return CodePage::ToBytes(text).toStdString();
}

/// The row's values in the order of the declared columns.
Sqlite2::Row ValuesOf(const TableRow &row, const std::vector<int> &sourceColumns)
{
    Sqlite2::Row values;
    values.reserve(sourceColumns.size());
    for (const int column : sourceColumns) {
        const Cell &cell = row.At(column);
        values.push_back(cell ? Sqlite2::Value(Bytes(*cell)) : Sqlite2::Value());
    }
    return values;
}

void InsertRows(Sqlite2::Writer &writer, const Sqlite2::Table &table, const TableSource &source)
{
    std::vector<int> sourceColumns;
    for (const Sqlite2::Column &column : table.columns)
        sourceColumns.push_back(
            static_cast<int>(source.Columns().indexOf(QString::fromStdString(column.name))));

    for (const TableRow &row : source.Rows()) {
        try {
            writer.InsertRow(table.name, ValuesOf(row, sourceColumns));
        } catch (const Sqlite2::Error &error) {
            throw CatalogueError(QStringLiteral("%1:%2: the database does not take the row: %3")
                                     .arg(source.File())
                                     .arg(row.Line())
                                     .arg(CodePage::FromBytes(error.what())));
        }
    }
}

} // namespace

void BuildDatabase(const CatalogueSources &sources, const QString &fileName)
{
    Sqlite2::Writer writer;
    try {
        for (const SchemaStatement &statement : sources.Schema().Statements()) {
            if (statement.isIndex)
                writer.CreateIndex(Bytes(statement.sql));
            else
                writer.CreateTable(Bytes(statement.sql));
        }
        for (const Sqlite2::Table &table : sources.Schema().Tables())
            InsertRows(writer, table, sources.Table(QString::fromStdString(table.name)));
        writer.Finish(QFileInfo(fileName).filesystemFilePath());
    } catch (const Sqlite2::Error &error) {
        throw CatalogueError(QStringLiteral("The database cannot be made: %1")
                                 .arg(CodePage::FromBytes(error.what())));
    }
}

} // namespace Tesk
