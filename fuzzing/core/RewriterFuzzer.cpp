#include "base/Errors.h"
#include "core/ResultTable.h"
#include "core/database/CatalogueConnection.h"
#include "core/database/Comparisons.h"
#include "core/database/ReadGuard.h"
#include "core/database/StatementRewriter.h"
#include "core/database/StatementRunner.h"
#include "support/Require.h"

#include <sqlite3.h>

#include <QStringList>

#include <algorithm>
#include <cstdint>

using namespace Tesk;
using namespace Tesk::Database;
using Fuzzing::Require;

namespace {

/// A small version 2 database that holds the same values in columns of several types.
class Sample final
{
public:
    Sample()
    {
        Execute(Handle(), "PRAGMA short_column_names = OFF");
        schema = TableSchema(Handle());
        GuardConnection(Handle(), schema);
    }

    sqlite3 *Handle() const { return catalogue.connection.get(); }
    const TableSchema &Schema() const { return schema; }

    bool Takes(const QByteArray &sql) const { return ColumnCount(sql) > 0; }

    /// The number of the result's columns; 0 for a statement that SQLite refuses.
    int ColumnCount(const QByteArray &sql) const
    {
        try {
            const Statement statement = Prepare(Handle(), sql);
            return statement ? sqlite3_column_count(statement.get()) : 0;
        } catch (const FileError &) {
            return 0;
        }
    }

private:
    CatalogueConnection catalogue =
        OpenCatalogue(QStringLiteral(SAMPLES_DIR "/typing.db"), QString());
    TableSchema schema;
};

QStringList RowsOf(const ResultTable &table)
{
    QStringList rows;
    for (int row = 1; row <= table.UpperRow(); ++row) {
        QStringList cells;
        for (int column = 0; column < table.ColumnCount(); ++column)
            cells.append(table.IsNull(row, column) ? QStringLiteral("NULL")
                                                   : u'\'' + table.Text(row, column) + u'\'');
        rows.append(cells.join(u','));
    }
    rows.sort();
    return rows;
}

/// Whether the answer does not hang on the way in which SQLite finds it: on what is cut off, or on
/// which of several equal values stands for them.
bool IsDefinite(const SelectOutline &select, const SqlTokens &tokens)
{
    const auto selects = std::count_if(
        tokens.begin(), tokens.end(), [](const SqlToken &token) { return token.IsWord("SELECT"); });
    const auto isCall = [&tokens](const ResultColumn &column) {
        return std::any_of(tokens.begin() + static_cast<std::ptrdiff_t>(column.expression.begin),
                           tokens.begin() + static_cast<std::ptrdiff_t>(column.expression.end),
                           [](const SqlToken &token) { return token.IsSymbol("("); });
    };
    return selects == 1 && select.limit.IsEmpty() && !select.isGrouped && !select.isDistinct &&
           !select.isCompound && std::none_of(select.columns.begin(), select.columns.end(), isCall);
}

/// Order and hints are not to change which rows a statement gives.
void CompareRows(const Sample &sample, const QByteArray &compared, const RewrittenStatement &full)
{
    try {
        const ResultTable plain =
            RunStatement(sample.Handle(), {compared, compared, full.columnNames});
        const ResultTable rewritten = RunStatement(sample.Handle(), full);
        Require(RowsOf(plain) == RowsOf(rewritten), "the rewritten statement gives the same rows");
    } catch (const FileError &) {
        // It takes too long, or overflows on its way.
        return;
    }
}

} // namespace

/// Rewrites the input as a statement.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Sample sample;
    const QByteArray sql(std::string(data, data + size).c_str());
    const std::optional<SqlTokens> tokens = FirstStatement(sql);
    const std::optional<SelectOutline> select = tokens ? OutlineOf(*tokens) : std::nullopt;
    const RewrittenStatement full = RewriteStatement(sql, sample.Schema());
    if (!select || !sample.Takes(sql))
        return 0;
    const QByteArray compared = Apply(ComparisonEdits(*select, *tokens, sample.Schema()), sql);
    Require(sample.Takes(compared), "SQLite takes a statement with the version 2 comparisons");
    Require(sample.Takes(full.sql), "SQLite takes a statement that was rewritten");
    Require(!full.columnNames || full.columnNames->size() == sample.ColumnCount(full.sql),
            "every column of the result has its name");
    if (IsDefinite(*select, *tokens))
        CompareRows(sample, compared, full);
    return 0;
}
