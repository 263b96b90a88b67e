#include "sqlite2/SchemaReader.h"

#include "sqlite2/AsciiText.h"
#include "sqlite2/Format.h"
#include "sqlite2/PageCensus.h"
#include "sqlite2/Record.h"
#include "sqlite2/Statements.h"
#include "sqlite2/TreeWalk.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

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

std::uint32_t RootPage(const std::string &text)
{
    std::uint32_t page = 0;
    const char *const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, page);
    if (result.ec != std::errc() || result.ptr != end)
        throw Error("its root page is \"" + text + "\", which is no number of a page");
    return page;
}

/// The engine writes an entry's name twice, beside the statement and in it.
void RequireSameName(const std::string &declared, const std::string &listed)
{
    if (declared != listed)
        throw Error("its statement names \"" + declared + "\" and not \"" + listed + '"');
}

bool HasColumn(const Table &table, const std::string &name)
{
    return std::ranges::any_of(table.columns, [&name](const Column &column) {
        return EqualIgnoringCase(column.name, name);
    });
}

class SchemaBuilder final
{
public:
    explicit SchemaBuilder(PageCensus &filePages)
        : pages(filePages)
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
            Table &table = tables[entry->second];
            for (const std::string &column : declaration.index.columns) {
                if (!HasColumn(table, column))
                    throw Error("the schema's index \"" + declaration.index.name +
                                "\" is of a column \"" + column + "\", which its table lacks");
            }
            table.indexes.push_back(std::move(declaration.index));
        }
        return std::move(tables);
    }

private:
    void AddTable(const Row &row)
    {
        Table table = ParseCreateTable(Required(row, sqlColumn)).table;
        RequireSameName(table.name, Required(row, nameColumn));
        RequireSameName(table.name, Required(row, tableColumn));
        table.rootPage = RootPage(Required(row, rootColumn));
        pages.AddTree(table.rootPage);
        if (!positions.emplace(ToUpper(table.name), tables.size()).second)
            throw Error("another table has its name");
        tables.push_back(std::move(table));
    }

    void AddIndex(const Row &row)
    {
        pages.AddTree(RootPage(Required(row, rootColumn)));
        if (!row[sqlColumn])
            return;
        IndexDeclaration declaration = ParseCreateIndex(*row[sqlColumn]);
        RequireSameName(declaration.index.name, Required(row, nameColumn));
        declaration.tableName = Required(row, tableColumn);
        indexes.push_back(std::move(declaration));
    }

    PageCensus &pages;
    std::vector<Table> tables;
    std::vector<IndexDeclaration> indexes;
    std::unordered_map<std::string, std::size_t> positions;
};

} // namespace

std::vector<Table> ReadSchema(const PageFile &file)
{
    PageCensus pages(file);
    pages.AddTree(Format::MasterRootPage);
    SchemaBuilder builder(pages);
    TreeWalk walk(file, Format::MasterRootPage);
    for (Row row; walk.Next();) {
        DecodeRecord(walk.Data(), columnCount, row);
        builder.Add(row);
    }
    pages.AddFreeList();
    pages.RequireAllPages();
    return builder.Take();
}

} // namespace Sqlite2
