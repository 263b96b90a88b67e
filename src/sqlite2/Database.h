#pragma once

#include "sqlite2/PageFile.h"
#include "sqlite2/Schema.h"
#include "sqlite2/TableRows.h"

#include <string>
#include <string_view>
#include <vector>

namespace Sqlite2 {

/// A version 2 database in memory: what Reader offers, without the file system.
class Database final
{
public:
    /// The file's bytes and those of its journal (empty without one). Throws Error like Reader.
    explicit Database(std::string fileBytes, std::string_view journal = {});

    const std::vector<Table> &Tables() const { return tables; }

    /// The table's rows, as long as this object and the table live.
    TableRows Rows(const Table &table) const { return {file, table}; }

private:
    PageFile file;
    std::vector<Table> tables;
};

} // namespace Sqlite2
