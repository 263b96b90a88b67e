#include "SqlCommand.h"

#include "UsageError.h"
#include "core/SQLiteWrapper.h"
#include "sql/TableText.h"

#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>

namespace Tesk {

namespace {

struct SqlArguments
{
    bool asJson = false;
    QString file;
    QString statement;
};

SqlArguments ReadArguments(QStringList arguments)
{
    SqlArguments read;
    read.asJson = arguments.removeAll(QStringLiteral("--json")) > 0;
    if (arguments.value(0).startsWith(QLatin1String("--")))
        throw UsageError(QStringLiteral("sql has no option %1").arg(arguments[0]));
    if (arguments.size() != 2)
        throw UsageError(QStringLiteral("sql takes a FILE and a STATEMENT"));
    read.file = arguments[0];
    read.statement = arguments[1];
    return read;
}

} // namespace

int RunSql(const QStringList &arguments)
{
    const SqlArguments read = ReadArguments(arguments);
    // What fails is told once, by the exception.
    QLoggingCategory::setFilterRules(QStringLiteral("tesk.database=false"));
    SQLiteWrapper database{QString()};
    QString error;
    if (!database.Open(read.file, &error))
        throw CatalogueError(error);
    const ResultTable table = database.GetTable(read.statement, &error);
    if (!error.isEmpty())
        throw CatalogueError(QStringLiteral("The statement fails: %1").arg(error));

    const QByteArray text = (read.asJson ? JsonText(table) : AlignedText(table)).toUtf8();
    if (std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stdout) !=
            static_cast<size_t>(text.size()) ||
        std::fflush(stdout) != 0)
        throw FileError(QStringLiteral("The rows cannot be written to the standard output."));
    return EXIT_SUCCESS;
}

} // namespace Tesk
