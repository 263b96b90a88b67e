#include "sqlite2/Statements.h"
#include "sqlite2/TokenReader.h"

namespace Sqlite2 {

IndexDeclaration ParseCreateIndex(std::string_view sql)
{
    TokenReader reader(sql);
    IndexDeclaration declaration;
    reader.Expect("CREATE");
    declaration.index.isUnique = reader.Accept("UNIQUE");
    reader.Expect("INDEX");
    declaration.index.name = reader.ExpectName("an index");
    reader.Expect("ON");
    declaration.tableName = reader.ExpectName("a table");
    declaration.index.columns = ReadColumnList(reader);
    // The conflict rule that may follow decides only about writes.
    if (reader.Accept("ON")) {
        reader.Expect("CONFLICT");
        reader.ExpectName("a conflict rule");
    }
    reader.ExpectEnd();
    return declaration;
}

} // namespace Sqlite2
