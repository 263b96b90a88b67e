#include "sqlite2/TableRows.h"

#include "sqlite2/Record.h"
#include "sqlite2/RowKey.h"

namespace Sqlite2 {

TableRows::TableRows(const PageFile &file, const Table &source)
    : table(source)
    , walk(file, source.rootPage)
{}

bool TableRows::Next()
{
    if (!walk.Next())
        return false;
    rowId = DecodeRowKey(walk.Key());
    DecodeRecord(walk.Data(), table.columns.size(), values);
    if (table.rowIdColumn >= 0)
        values.at(static_cast<std::size_t>(table.rowIdColumn)) = std::to_string(rowId);
    return true;
}

} // namespace Sqlite2
