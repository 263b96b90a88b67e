#include "base/CodePage.h"
#include "core/SQLiteWrapper.h"
#include "sqlite2/Database.h"
#include "support/MemoryFile.h"
#include "support/Require.h"

#include <string>

using namespace Tesk;
using Fuzzing::Require;

namespace {

QString TextOf(const std::string &text)
{
    return CodePage::FromBytes(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
}

QString Quoted(QString name)
{
    return u'"' + name.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

/// The catalogue's rows must be those of the file.
void CheckTable(const SQLiteWrapper &catalogue, Sqlite2::Database &file,
                const Sqlite2::Table &table)
{
    QString error;
    const ResultTable result =
        catalogue.GetTable(QStringLiteral("SELECT * FROM ") + Quoted(TextOf(table.name)), &error);
    Require(error.isEmpty(), "a table of the file can be read");
    int row = 0;
    for (auto rows = file.Rows(table); rows.Next();) {
        Require(++row <= result.UpperRow(), "no row is left out");
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const int column = static_cast<int>(i);
            const Sqlite2::Value &value = rows.Values()[i];
            Require(result.IsNull(row, column) == !value, "NULL stays NULL");
            Require(!value || result.Text(row, column) == TextOf(*value), "a text stays as it is");
            Require(result.Text(0, column) == TextOf(table.columns[i].name),
                    "a column keeps its name");
        }
    }
    Require(row == std::max(result.UpperRow(), 0), "no row is added");
}

} // namespace

/// Takes the input for a catalogue's database file and compares what opens with what it holds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Fuzzing::MemoryFile memory;
    memory.Write(data, size);
    // Without a folder to keep it in, each input is read anew.
    SQLiteWrapper catalogue{QString()};
    QString error;
    if (!catalogue.Open(memory.Path(), &error)) {
        Require(!error.isEmpty(), "a file that does not open is told why");
        return 0;
    }
    const std::string bytes(data, data + size);
    if (bytes.starts_with("SQLite format 3"))
        return 0;
    Sqlite2::Database file(bytes);
    for (const Sqlite2::Table &table : file.Tables())
        CheckTable(catalogue, file, table);
    return 0;
}
