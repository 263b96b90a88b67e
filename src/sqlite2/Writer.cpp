#include "sqlite2/Writer.h"

#include "sqlite2/AsciiText.h"
#include "sqlite2/Error.h"
#include "sqlite2/FileBytes.h"
#include "sqlite2/Format.h"
#include "sqlite2/NewIndex.h"
#include "sqlite2/NewTable.h"
#include "sqlite2/TokenReader.h"
#include "sqlite2/TreeBuilder.h"

#include <set>
#include <variant>

namespace Sqlite2 {

namespace {

/// The statement as the schema keeps it: without blanks around it and the closing semicolon.
std::string StoredText(const std::string &sql)
{
    const std::vector<Token> tokens = Tokenize(sql);
    std::size_t end = 0;
    for (const Token &token : tokens) {
        if (!token.IsSymbol(';') && token.kind != Token::Kind::End)
            end = token.begin + token.size;
    }
    const std::size_t begin = tokens.front().begin;
    return sql.substr(begin, end - begin);
}

/// Something that has a line in `sqlite_master` and a tree of its own.
struct SchemaEntry
{
    std::variant<std::unique_ptr<NewTable>, std::unique_ptr<NewIndex>> object;
    std::string tableName;
    Value sql;

    bool IsTable() const { return object.index() == 0; }
    const std::string &Name() const
    {
        return std::visit([](const auto &held) -> const std::string & { return held->Name(); },
                          object);
    }
    void Build(FileBuilder &file, std::uint32_t rootPage) const
    {
        std::visit([&](const auto &held) { held->Build(file, rootPage); }, object);
    }
};

} // namespace

class Writer::Private final
{
public:
    explicit Private(ByteOrder byteOrder)
        : order(byteOrder)
    {}

    void AddTable(const std::string &sql);
    void AddIndex(const std::string &sql);
    NewTable &FindTable(const std::string &name);
    std::string Bytes() const;

private:
    void TakeName(const std::string &name);
    void AddImpliedIndexes(const NewTable &table);

    ByteOrder order;
    std::vector<SchemaEntry> entries;
    /// In upper case: names differ in more than case.
    std::set<std::string> names{"SQLITE_MASTER"};
};

void Writer::Private::AddTable(const std::string &sql)
{
    auto table = std::make_unique<NewTable>(ParseCreateTable(sql));
    std::set<std::vector<std::size_t>> distinctKeys;
    for (const std::vector<std::size_t> &key : table->UniqueKeys()) {
        if (!distinctKeys.insert(key).second)
            throw Error("the table " + table->Name() + " declares the same key twice");
    }
    TakeName(table->Name());
    const NewTable &added = *table;
    entries.push_back({std::move(table), added.Name(), StoredText(sql)});
    AddImpliedIndexes(added);
}

void Writer::Private::AddImpliedIndexes(const NewTable &table)
{
    int number = 0;
    for (const std::vector<std::size_t> &key : table.UniqueKeys()) {
        const std::string name =
            '(' + table.Name() + " autoindex " + std::to_string(++number) + ')';
        TakeName(name);
        entries.push_back({std::make_unique<NewIndex>(name, table, key, true), table.Name(), {}});
    }
}

void Writer::Private::AddIndex(const std::string &sql)
{
    const IndexDeclaration declaration = ParseCreateIndex(sql);
    const NewTable &table = FindTable(declaration.tableName);
    auto index = std::make_unique<NewIndex>(declaration.index.name, table,
                                            table.Positions(declaration.index.columns),
                                            declaration.index.isUnique);
    TakeName(index->Name());
    entries.push_back({std::move(index), table.Name(), StoredText(sql)});
}

NewTable &Writer::Private::FindTable(const std::string &name)
{
    for (const SchemaEntry &entry : entries) {
        if (entry.IsTable() && EqualIgnoringCase(entry.Name(), name))
            return *std::get<std::unique_ptr<NewTable>>(entry.object);
    }
    throw Error("there is no table " + name);
}

/// Tables and indexes share one space of names; `sqlite_master` is taken from the start.
void Writer::Private::TakeName(const std::string &name)
{
    if (!names.insert(ToUpper(name)).second)
        throw Error("the name " + name + " is taken already");
}

std::string Writer::Private::Bytes() const
{
    FileBuilder file(order);
    NewTable master(
        ParseCreateTable("CREATE TABLE sqlite_master(type, name, tbl_name, rootpage, sql)"));
    for (const SchemaEntry &entry : entries) {
        const std::uint32_t rootPage = file.AddPage();
        entry.Build(file, rootPage);
        master.Insert({entry.IsTable() ? "table" : "index", entry.Name(), entry.tableName,
                       std::to_string(rootPage), entry.sql});
    }
    master.Build(file, Format::MasterRootPage);
    return file.Bytes();
}

Writer::Writer(ByteOrder byteOrder)
    : d(std::make_unique<Private>(byteOrder))
{}

Writer::~Writer() = default;

void Writer::CreateTable(const std::string &sql)
{
    d->AddTable(sql);
}

void Writer::CreateIndex(const std::string &sql)
{
    d->AddIndex(sql);
}

void Writer::InsertRow(const std::string &table, const Row &row)
{
    d->FindTable(table).Insert(row);
}

void Writer::Finish(const std::filesystem::path &fileName)
{
    // A reader would lay the older file's saved pages over the new one.
    if (std::filesystem::path journalName = JournalName(fileName);
        std::filesystem::exists(journalName))
        throw Error("cannot write " + fileName.string() +
                    ": the journal of an unfinished write stands "
                    "beside it; remove " +
                    journalName.string() + " first");
    ReplaceFile(fileName, d->Bytes());
}

} // namespace Sqlite2
