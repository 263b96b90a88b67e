#include "sources/TableSource.h"

#include "sources/Problems.h"
#include "sources/TextFile.h"

#include <QDir>

namespace Tesk {

namespace {

constexpr QChar CellSeparator = QLatin1Char('\t');
constexpr QLatin1String NullMark("\\N");
const Cell NullCell;

} // namespace

TableRow::TableRow(const TableSource &source, int rowIndex)
    : table(&source)
    , row(rowIndex)
{}

int TableRow::Line() const
{
    return table->rows[static_cast<size_t>(row)].line;
}

const Cell &TableRow::At(QLatin1String column) const
{
    const int index = table->columnIndex.value(column, -1);
    return index < 0 ? NullCell : At(index);
}

const Cell &TableRow::At(int column) const
{
    return table->rows[static_cast<size_t>(row)].cells[static_cast<size_t>(column)];
}

QString TableRow::Text(QLatin1String column) const
{
    return At(column).value_or(QString());
}

TableSource::TableSource(const QDir &folder, const QString &fileName, Problems &problems)
    : file(fileName)
{
    const QStringList lines = ReadSourceLines(folder, file, problems);
    if (lines.isEmpty()) {
        if (folder.exists(file))
            problems.Add(file, 1,
                         QStringLiteral("the file is empty; begin it with the line of column "
                                        "names"));
        return;
    }
    ReadHeader(lines.first(), problems);
    for (int i = 1; i < lines.size(); ++i)
        ReadRow(i + 1, lines[i], problems);
}

std::vector<TableRow> TableSource::Rows() const
{
    std::vector<TableRow> views;
    views.reserve(rows.size());
    for (size_t i = 0; i < rows.size(); ++i)
        views.emplace_back(*this, static_cast<int>(i));
    return views;
}

void TableSource::ReadHeader(const QString &line, Problems &problems)
{
    columns = line.split(CellSeparator);
    for (int i = 0; i < columns.size(); ++i) {
        if (columnIndex.contains(columns[i]))
            problems.Add(file, 1,
                         QStringLiteral("the column \"%1\" stands twice; remove one of them")
                             .arg(columns[i]));
        columnIndex.insert(columns[i], i);
    }
}

void TableSource::ReadRow(int line, const QString &text, Problems &problems)
{
    const QStringList texts = text.split(CellSeparator);
    if (texts.size() != columns.size()) {
        problems.Add(file, line,
                     QStringLiteral("the row has %1 cells, the first line names %2 columns; part "
                                    "the cells by single tabs and write \\N for a missing value")
                         .arg(texts.size())
                         .arg(columns.size()));
        return;
    }

    StoredRow stored{line, {}};
    stored.cells.reserve(static_cast<size_t>(texts.size()));
    for (const QString &cell : texts) {
        CheckCodePage(cell, file, line, problems);
        stored.cells.push_back(cell == NullMark ? Cell() : Cell(cell));
    }
    rows.push_back(std::move(stored));
}

} // namespace Tesk
