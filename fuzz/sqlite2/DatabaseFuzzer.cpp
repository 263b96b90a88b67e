#include "sqlite2/Database.h"
#include "sqlite2/Error.h"

#include <cstddef>
#include <cstdint>

/// Takes the input for a version 2 file and reads all of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    try {
        Sqlite2::Database database(std::string(data, data + size));
        for (const Sqlite2::Table &table : database.Tables()) {
            for (auto rows = database.Rows(table); rows.Next();) {
                if (rows.Values().size() != table.columns.size())
                    __builtin_trap();
            }
        }
    } catch (const Sqlite2::Error &) {
        return 0;
    }
    return 0;
}
