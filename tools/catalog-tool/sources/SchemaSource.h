#pragma once

#include "sqlite2/Schema.h"

#include <QList>
#include <QString>

#include <vector>

class QDir;

namespace Tesk {

class Problems;

struct SchemaStatement
{
    int line = 0; ///< of its first word
    QString sql;  ///< without comments and the closing ';'
    bool isIndex = false;
};

/// The declarations of the catalogue's tables and indexes, `tables/schema.sql`.
class SchemaSource final
{
public:
    /// A statement that is neither CREATE TABLE nor CREATE INDEX, or that the database cannot
    /// read, is a problem.
    SchemaSource(const QDir &folder, Problems &problems);

    static QString File();

    /// The usable statements in the file's order.
    const QList<SchemaStatement> &Statements() const { return statements; }
    const std::vector<Sqlite2::Table> &Tables() const { return tables; }
    /// The table of exactly this name, or nullptr.
    const Sqlite2::Table *FindTable(const QString &name) const;

private:
    void ReadDeclaration(const SchemaStatement &statement, Problems &problems);

    QList<SchemaStatement> statements;
    std::vector<Sqlite2::Table> tables;
};

} // namespace Tesk
