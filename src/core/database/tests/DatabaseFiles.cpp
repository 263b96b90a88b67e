#include "core/database/tests/DatabaseFiles.h"

#include "sqlite2/Writer.h"

#include <sqlite3.h>

#include <stdexcept>

namespace Tesk::Database {

namespace {

QString CellOf(const ResultTable &table, int row, int column)
{
    return table.IsNull(row, column) ? QStringLiteral("NULL") : table.Text(row, column);
}

} // namespace

void WriteVersion2(const QString &fileName, const QList<Version2Table> &tables)
{
    Sqlite2::Writer writer;
    for (const Version2Table &table : tables) {
        writer.CreateTable(table.sql.toStdString());
        for (const QByteArrayList &texts : table.rows) {
            Sqlite2::Row row;
            for (const QByteArray &text : texts)
                row.push_back(text.isNull() ? Sqlite2::Value() : text.toStdString());
            writer.InsertRow(table.name.toStdString(), row);
        }
    }
    writer.Finish(fileName.toStdString());
}

void WriteVersion3(const QString &fileName, const QByteArray &sql)
{
    sqlite3 *connection = nullptr;
    const bool isMade =
        sqlite3_open(fileName.toUtf8().constData(), &connection) == SQLITE_OK &&
        sqlite3_exec(connection, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
    const std::string reason = sqlite3_errmsg(connection);
    sqlite3_close(connection);
    if (!isMade)
        throw std::runtime_error(reason);
}

QString SampleFile(const QString &name)
{
    return QStringLiteral(SAMPLES_DIR "/") + name;
}

QStringList NamesOf(const ResultTable &table)
{
    QStringList names;
    for (int column = 0; column < table.ColumnCount(); ++column)
        names.append(table.Text(0, column));
    return names;
}

QStringList ColumnOf(const ResultTable &table, int column)
{
    QStringList texts;
    for (int row = 1; row <= table.UpperRow(); ++row)
        texts.append(CellOf(table, row, column));
    return texts;
}

QStringList RowsOf(const ResultTable &table)
{
    QStringList rows;
    for (int row = 1; row <= table.UpperRow(); ++row) {
        QStringList cells;
        for (int column = 0; column < table.ColumnCount(); ++column)
            cells.append(CellOf(table, row, column));
        rows.append(cells.join(QLatin1Char('|')));
    }
    return rows;
}

} // namespace Tesk::Database
