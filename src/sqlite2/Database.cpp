#include "sqlite2/Database.h"

#include "sqlite2/Journal.h"
#include "sqlite2/SchemaReader.h"

namespace Sqlite2 {

Database::Database(std::string fileBytes, std::string_view journal)
    : file(RollBack(std::move(fileBytes), journal))
    , tables(ReadSchema(file))
{}

} // namespace Sqlite2
