#include "core/database/CatalogueImport.h"

#include "base/CodePage.h"
#include "base/Errors.h"
#include "core/database/CatalogueIndexes.h"
#include "core/database/Collations.h"
#include "core/database/TableSchema.h"
#include "sqlite2/Reader.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace Tesk::Database {

namespace {

/// Turns 8-bit text into UTF-8. Most texts of a catalogue are ASCII, which is both.
class TextConverter final
{
public:
    TextConverter()
    {
        for (int code = 0; code < 256; ++code) {
            const char byte = static_cast<char>(code);
            characters[static_cast<size_t>(code)] =
                CodePage::FromBytes(QByteArrayView(&byte, 1)).toUtf8().toStdString();
        }
    }

    /// Valid until the text or the converter's next call changes.
    std::string_view ToUtf8(std::string_view text, std::string &buffer) const
    {
        const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80U; };
        if (std::all_of(text.begin(), text.end(), isAscii))
            return text;
        buffer.clear();
        for (const char c : text)
            buffer += characters[static_cast<unsigned char>(c)];
        return buffer;
    }

    QByteArray NameOf(const std::string &text) const
    {
        std::string buffer;
        const std::string_view utf8 = ToUtf8(text, buffer);
        return {utf8.data(), static_cast<qsizetype>(utf8.size())};
    }

private:
    std::array<std::string, 256> characters;
};

class Importer final
{
public:
    explicit Importer(const QString &fileName);

    Image Import();

private:
    void ImportTable(const Sqlite2::Table &table);
    TableInfo TableOf(const Sqlite2::Table &table) const;
    void CreateTable(const TableInfo &table);
    Statement PrepareInsert(const TableInfo &table);
    void InsertRow(sqlite3_stmt *insert, std::int32_t rowId, const Sqlite2::Row &row);
    void CreateIndexes(const TableInfo &table, qint64 rowCount);

    Sqlite2::Reader reader;
    Connection connection = OpenMemory();
    TextConverter converter;
    std::vector<std::string> buffers;
};

Importer::Importer(const QString &fileName)
    : reader(std::filesystem::path(fileName.toStdU16String()))
{
    for (const char *pragma : {"PRAGMA journal_mode = OFF", "PRAGMA page_size = 4096"})
        Execute(connection.get(), pragma);
}

Image Importer::Import()
{
    Execute(connection.get(), "BEGIN");
    // The statistics need their table, which nothing but this statement makes.
    Execute(connection.get(), "ANALYZE sqlite_master");
    for (const Sqlite2::Table &table : reader.Tables())
        ImportTable(table);
    Execute(connection.get(), "COMMIT");
    return ImageOf(connection.get());
}

void Importer::ImportTable(const Sqlite2::Table &source)
{
    const TableInfo table = TableOf(source);
    CreateTable(table);
    const Statement insert = PrepareInsert(table);
    buffers.resize(static_cast<size_t>(table.columns.size()));
    qint64 rowCount = 0;
    reader.ReadRows(source, [&](std::int32_t rowId, const Sqlite2::Row &row) {
        InsertRow(insert.get(), rowId, row);
        ++rowCount;
    });
    CreateIndexes(table, rowCount);
}

TableInfo Importer::TableOf(const Sqlite2::Table &source) const
{
    TableInfo table{converter.NameOf(source.name), {}, false};
    for (const Sqlite2::Column &column : source.columns) {
        const bool isText = column.Class() == Sqlite2::TypeClass::Text;
        table.columns.append(
            {converter.NameOf(column.name), isText ? ColumnClass::Text : ColumnClass::Numeric});
    }
    if (source.rowIdColumn >= 0)
        table.columns[source.rowIdColumn].isRowId = true;
    return table;
}

void Importer::CreateTable(const TableInfo &table)
{
    QByteArrayList columns;
    for (const ColumnInfo &column : table.columns) {
        const bool isText = column.columnClass == ColumnClass::Text;
        columns.append(Quoted(column.name) + ' ' + (column.isRowId ? RowIdType : "TEXT") +
                       " COLLATE " + (isText ? TextCollation : NumericCollation));
    }
    Execute(connection.get(),
            "CREATE TABLE " + Quoted(table.name) + " (" + columns.join(", ") + ')');
}

/// Parameter 1 is the row id, the values follow. Without a free name for the row id SQLite counts
/// the rows itself, in the same order.
Statement Importer::PrepareInsert(const TableInfo &table)
{
    const TableSchema schema(connection.get());
    QByteArrayList names;
    QByteArrayList parameters;
    if (!schema.RowIdName().isEmpty()) {
        names.append(schema.RowIdName());
        parameters.append("?1");
    }
    for (qsizetype i = 0; i < table.columns.size(); ++i) {
        names.append(Quoted(table.columns[i].name));
        parameters.append('?' + QByteArray::number(i + 2));
    }
    return Prepare(connection.get(), "INSERT INTO " + Quoted(table.name) + " (" + names.join(", ") +
                                         ") VALUES (" + parameters.join(", ") + ')');
}

void Importer::InsertRow(sqlite3_stmt *insert, std::int32_t rowId, const Sqlite2::Row &row)
{
    sqlite3_bind_int64(insert, 1, rowId);
    for (size_t column = 0; column < row.size() && column < buffers.size(); ++column) {
        const int parameter = static_cast<int>(column) + 2;
        if (!row[column]) {
            sqlite3_bind_null(insert, parameter);
            continue;
        }
        const std::string_view text = converter.ToUtf8(*row[column], buffers[column]);
        sqlite3_bind_text64(insert, parameter, text.data(), text.size(), SQLITE_STATIC,
                            SQLITE_UTF8);
    }
    const int status = sqlite3_step(insert);
    sqlite3_reset(insert);
    if (status != SQLITE_DONE)
        throw FileError(LastError(connection.get()));
}

void Importer::CreateIndexes(const TableInfo &table, qint64 rowCount)
{
    if (rowCount == 0)
        return;
    for (const IndexPlan &plan : IndexPlansOf(table, rowCount)) {
        Execute(connection.get(), plan.createSql);
        Execute(connection.get(), plan.statisticsSql);
    }
}

} // namespace

Image ImportVersion2File(const QString &fileName)
{
    return Importer(fileName).Import();
}

} // namespace Tesk::Database
