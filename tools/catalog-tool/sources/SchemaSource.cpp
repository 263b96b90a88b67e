#include "sources/SchemaSource.h"

#include "base/CodePage.h"
#include "sources/Problems.h"
#include "sources/TextFile.h"
#include "sqlite2/Error.h"
#include "sqlite2/Statements.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

namespace Tesk {

namespace {

/// Cuts a text of SQL into statements, comments left out; mind that quoted names may hold ';'.
class StatementSplitter final
{
public:
    QList<SchemaStatement> Split(const QStringList &lines)
    {
        for (int i = 0; i < lines.size(); ++i)
            ReadLine(i + 1, lines[i]);
        EndStatement();
        return statements;
    }

private:
    void ReadLine(int number, const QString &line)
    {
        for (int i = 0; i < line.size(); ++i) {
            const QChar character = line[i];
            if (quote.isNull()) {
                if (character == QLatin1Char('-') && line.mid(i, 2) == QLatin1String("--"))
                    break;
                if (character == QLatin1Char(';')) {
                    EndStatement();
                    continue;
                }
                if (character == QLatin1Char('\'') || character == QLatin1Char('"'))
                    quote = character;
            } else if (character == quote) {
                quote = QChar();
            }
            if (current.line == 0 && !character.isSpace())
                current.line = number;
            current.sql += character;
        }
        current.sql += QLatin1Char('\n');
    }

    void EndStatement()
    {
        static const QRegularExpression blanksAtLineEnd(QStringLiteral("[ \\t]+(?=\\n)"));
        current.sql = current.sql.remove(blanksAtLineEnd).trimmed();
        if (!current.sql.isEmpty())
            statements.append(current);
        current = SchemaStatement();
        quote = QChar();
    }

    QList<SchemaStatement> statements;
    SchemaStatement current;
    QChar quote;
};

enum class StatementKind { Table, Index, Other };

StatementKind KindOf(const QString &sql)
{
    static const QRegularExpression table(QStringLiteral("^CREATE\\s+TABLE\\b"),
                                          QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression index(QStringLiteral("^CREATE\\s+(UNIQUE\\s+)?INDEX\\b"),
                                          QRegularExpression::CaseInsensitiveOption);
    if (table.match(sql).hasMatch())
        return StatementKind::Table;
    return index.match(sql).hasMatch() ? StatementKind::Index : StatementKind::Other;
}

} // namespace

SchemaSource::SchemaSource(const QDir &folder, Problems &problems)
{
    for (SchemaStatement &statement :
         StatementSplitter().Split(ReadSourceLines(folder, File(), problems))) {
        CheckCodePage(QString(statement.sql).remove(QLatin1Char('\n')).remove(QLatin1Char('\t')),
                      File(), statement.line, problems);
        const StatementKind kind = KindOf(statement.sql);
        if (kind == StatementKind::Other) {
            problems.Add(File(), statement.line,
                         QStringLiteral("only CREATE TABLE and CREATE INDEX may stand here; remove "
                                        "the statement"));
            continue;
        }
        statement.isIndex = kind == StatementKind::Index;
        ReadDeclaration(statement, problems);
    }
}

QString SchemaSource::File()
{
    return QStringLiteral("tables/schema.sql");
}

const Sqlite2::Table *SchemaSource::FindTable(const QString &name) const
{
    const auto found = std::ranges::find(tables, name.toStdString(), &Sqlite2::Table::name);
    return found == tables.end() ? nullptr : &*found;
}

void SchemaSource::ReadDeclaration(const SchemaStatement &statement, Problems &problems)
{
    const std::string sql = CodePage::ToBytes(statement.sql).toStdString();
    try {
        if (statement.isIndex)
            Sqlite2::ParseCreateIndex(sql);
        else
            tables.push_back(Sqlite2::ParseCreateTable(sql).table);
        statements.append(statement);
    } catch (const Sqlite2::Error &error) {
        problems.Add(File(), statement.line,
                     QStringLiteral("the database cannot make this: %1; correct the statement")
                         .arg(CodePage::FromBytes(error.what())));
    }
}

} // namespace Tesk
