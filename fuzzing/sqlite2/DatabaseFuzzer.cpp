#include "sqlite2/Database.h"
#include "sqlite2/Error.h"
#include "support/Require.h"

#include <cstdint>
#include <limits>
#include <string>

using namespace Sqlite2;
using Tesk::Fuzzing::Require;

namespace {

/// Of a page's 236 bytes that an entry keeps there, what no offsets and key can take.
constexpr std::size_t LongestInOnePage = 200;

void ReadTable(Database &database, const Table &table, std::string_view file)
{
    std::int64_t previous = std::numeric_limits<std::int64_t>::min();
    for (TableRows rows = database.Rows(table); rows.Next();) {
        Require(rows.RowId() > previous, "row ids ascend");
        previous = rows.RowId();
        const Row &row = rows.Values();
        Require(row.size() == table.columns.size(), "a row has a value for each column");
        for (std::size_t i = 0; i < row.size(); ++i) {
            const bool isStored = row[i] && static_cast<int>(i) != table.rowIdColumn;
            if (isStored && row[i]->size() <= LongestInOnePage)
                Require(file.find(*row[i]) != std::string_view::npos, "a text stands in the file");
        }
    }
}

} // namespace

/// Takes the input for a version 2 file and reads all of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string file(data, data + size);
    try {
        Database database(file);
        for (const Table &table : database.Tables())
            ReadTable(database, table, file);
    } catch (const Error &) {
        return 0;
    }
    return 0;
}
