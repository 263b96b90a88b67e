#include "sqlite2/SchemaReader.h"

#include "sqlite2/AsciiText.h"
#include "sqlite2/Format.h"
#include "sqlite2/Record.h"
#include "sqlite2/Statements.h"
#include "sqlite2/TreeWalk.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>
#include <unordered_set>

namespace Sqlite2 {

namespace {

/// The columns of `sqlite_master`.
enum MasterColumn : std::size_t {
    typeColumn,
    nameColumn,
    tableColumn,
    rootColumn,
    sqlColumn,
    columnCount
};

const std::string &Required(const Row &row, MasterColumn column)
{
    if (!row[column])
        throw Error("the schema has an entry without its type, name or root page");
    return *row[column];
}

std::uint32_t RootPage(const std::string &text, std::uint32_t pageCount)
{
    std::uint32_t page = 0;
    const char *const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, page);
    if (result.ec != std::errc() || result.ptr != end || page <= Format::masterRootPage ||
        page > pageCount)
        throw Error("the schema names the root page \"" + text + "\", which cannot be one");
    return page;
}

class SchemaBuilder final
{
public:
    explicit SchemaBuilder(std::uint32_t filePages)
        : pageCount(filePages)
    {}

    void Add(const Row &row)
    {
        const std::string &type = Required(row, typeColumn);
        const std::string &name = Required(row, nameColumn);
        try {
            if (type == "table")
                AddTable(row);
            else if (type == "index")
                AddIndex(row);
            else if (type != "view" && type != "trigger")
                throw Error("it is of the unknown type \"" + type + '"');
        } catch (const Error &error) {
            throw Error("the schema's entry \"" + name + "\" cannot be read: " + error.what());
        }
    }

    /// Indexes join their tables last, because they may stand before them.
    std::vector<Table> Take()
    {
        for (IndexDeclaration &declaration : indexes) {
            const auto entry = positions.find(ToUpper(declaration.tableName));
            if (entry == positions.end())
                throw Error("the schema's index \"" + declaration.index.name +
                            "\" belongs to no table of the file");
            tables[entry->second].indexes.push_back(std::move(declaration.index));
        }
        return std::move(tables);
    }

private:
    void AddTable(const Row &row)
    {
        Table table = ParseCreateTable(Required(row, sqlColumn)).table;
        table.name = Required(row, nameColumn);
        table.rootPage = RootPage(Required(row, rootColumn), pageCount);
        if (!rootPages.insert(table.rootPage).second)
            throw Error("its root page is another table's");
        if (!positions.emplace(ToUpper(table.name), tables.size()).second)
            throw Error("another table has its name");
        tables.push_back(std::move(table));
    }

    void AddIndex(const Row &row)
    {
        if (!row[sqlColumn])
            return;
        IndexDeclaration declaration = ParseCreateIndex(*row[sqlColumn]);
        declaration.index.name = Required(row, nameColumn);
        declaration.tableName = Required(row, tableColumn);
        indexes.push_back(std::move(declaration));
    }

    std::uint32_t pageCount;
    std::vector<Table> tables;
    std::vector<IndexDeclaration> indexes;
    std::unordered_map<std::string, std::size_t> positions;
    std::unordered_set<std::uint32_t> rootPages;
};

} // namespace

std::vector<Table> ReadSchema(const PageFile &file, PageClaims &claims)
{
    SchemaBuilder builder(file.PageCount());
    TreeWalk walk(file, claims, Format::masterRootPage);
    for (Row row; walk.Next();) {
        DecodeRecord(walk.Data(), columnCount, row);
        builder.Add(row);
    }
    return builder.Take();
}

} // namespace Sqlite2
