#include "sqlite2/Error.h"
#include "sqlite2/Statements.h"

#include <cstddef>
#include <cstdint>

namespace {

void CheckTable(std::string_view sql)
{
    const Sqlite2::TableDeclaration declaration = Sqlite2::ParseCreateTable(sql);
    const std::size_t columns = declaration.table.columns.size();
    const int rowIdColumn = declaration.table.rowIdColumn;
    if (columns == 0 || rowIdColumn < -1 || rowIdColumn >= static_cast<int>(columns))
        __builtin_trap();
    for (const auto &key : declaration.uniqueKeys) {
        for (const std::size_t position : key) {
            if (position >= columns)
                __builtin_trap();
        }
    }
}

void CheckIndex(std::string_view sql)
{
    if (Sqlite2::ParseCreateIndex(sql).index.columns.empty())
        __builtin_trap();
}

} // namespace

/// Takes the input for a CREATE TABLE and for a CREATE INDEX statement.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string sql(data, data + size);
    for (const auto check : {CheckTable, CheckIndex}) {
        try {
            check(sql);
        } catch (const Sqlite2::Error &) {
            continue;
        }
    }
    return 0;
}
