#pragma once

#include "sqlite2/Schema.h"
#include "sqlite2/Value.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace Sqlite2::Samples {

/// One line of a sample's answers: what the version 2 engine says to a statement. NULL is a null
/// string.
struct Answer
{
    QString sql;
    bool isError = false;
    QStringList columns;
    QList<QStringList> rows;
};

/// The sample database of this name, such as `shapes.db`.
std::filesystem::path File(const std::string &name);

/// The answers beside the sample database.
QList<Answer> Answers(const std::string &databaseName);

/// The answer to exactly this statement. Fails with an exception when there is none.
Answer AnswerTo(const std::string &databaseName, const QString &sql);

/// A stored value as the answers show it: Windows-1252 read, NULL a null string.
QString Text(const Value &value);
QStringList Texts(const Row &row);

/// All rows of the table by row id.
std::map<std::int32_t, Row> RowsOf(const std::filesystem::path &file, const std::string &table);

/// A table's rows and how to find a column in them.
class LoadedTable final
{
public:
    LoadedTable(const std::filesystem::path &file, const std::string &table);

    QString Cell(std::int32_t rowId, const QString &column) const;
    /// The rows whose column says this, in the order of their row ids.
    QList<std::int32_t> RowIdsWhere(const QString &column, const QString &text) const;

    Table declaration;
    std::map<std::int32_t, Row> rows;
};

} // namespace Sqlite2::Samples
