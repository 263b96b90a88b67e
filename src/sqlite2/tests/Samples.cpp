#include "Samples.h"

#include "sqlite2/AsciiText.h"
#include "sqlite2/Reader.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <stdexcept>

namespace Sqlite2::Samples {

namespace {

/// Windows-1252 from 0x80 to 0x9f; everything else stands for the code point of its number.
constexpr std::array<char16_t, 32> UpperControls{
    0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008d, 0x017d, 0x008f, 0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178};

QStringList Strings(const QJsonArray &array)
{
    QStringList strings;
    for (const auto &value : array)
        strings.append(value.isNull() ? QString() : value.toString(QStringLiteral("")));
    return strings;
}

} // namespace

std::filesystem::path File(const std::string &name)
{
    return std::filesystem::path(SAMPLES_DIR) / name;
}

QList<Answer> Answers(const std::string &databaseName)
{
    QFile file(QString::fromStdString(File(databaseName).replace_extension(".jsonl").string()));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("no answers beside " + databaseName);
    QList<Answer> answers;
    while (!file.atEnd()) {
        const QJsonObject line = QJsonDocument::fromJson(file.readLine()).object();
        Answer answer;
        answer.sql = line[QLatin1String("sql")].toString();
        answer.isError = line[QLatin1String("rc")].toInt() != 0;
        answer.columns = Strings(line[QLatin1String("columns")].toArray());
        for (const auto &row : line[QLatin1String("rows")].toArray())
            answer.rows.append(Strings(row.toArray()));
        answers.append(answer);
    }
    return answers;
}

Answer AnswerTo(const std::string &databaseName, const QString &sql)
{
    for (const Answer &answer : Answers(databaseName)) {
        if (answer.sql == sql)
            return answer;
    }
    throw std::runtime_error("no answer to " + sql.toStdString());
}

QString Text(const Value &value)
{
    if (!value)
        return {};
    QString text = QStringLiteral("");
    for (const char c : *value) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isUpperControl = byte >= 0x80 && byte < 0xa0;
        text.append(QChar(isUpperControl ? UpperControls[byte - 0x80] : char16_t{byte}));
    }
    return text;
}

QStringList Texts(const Row &row)
{
    QStringList texts;
    for (const Value &value : row)
        texts.append(Text(value));
    return texts;
}

std::map<std::int32_t, Row> RowsOf(const std::filesystem::path &file, const std::string &table)
{
    return LoadedTable(file, table).rows;
}

LoadedTable::LoadedTable(const std::filesystem::path &file, const std::string &table)
{
    const Reader reader(file);
    const Table *const found = reader.FindTable(table);
    if (!found)
        throw std::runtime_error("no table " + table);
    declaration = *found;
    reader.ReadRows(*found, [&](std::int32_t rowId, const Row &row) { rows[rowId] = row; });
}

QString LoadedTable::Cell(std::int32_t rowId, const QString &column) const
{
    const std::string name = column.toStdString();
    for (std::size_t i = 0; i < declaration.columns.size(); ++i) {
        if (EqualIgnoringCase(declaration.columns[i].name, name))
            return Text(rows.at(rowId).at(i));
    }
    throw std::runtime_error("no column " + name);
}

QList<std::int32_t> LoadedTable::RowIdsWhere(const QString &column, const QString &text) const
{
    QList<std::int32_t> rowIds;
    for (const auto &[rowId, row] : rows) {
        if (Cell(rowId, column) == text)
            rowIds.append(rowId);
    }
    return rowIds;
}

} // namespace Sqlite2::Samples
