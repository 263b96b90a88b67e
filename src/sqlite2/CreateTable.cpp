#include "sqlite2/AsciiText.h"
#include "sqlite2/Error.h"
#include "sqlite2/Statements.h"
#include "sqlite2/TokenReader.h"

#include <algorithm>
#include <array>
#include <span>
#include <unordered_map>

namespace Sqlite2 {

namespace {

constexpr std::array<std::string_view, 9> ColumnConstraintWords{
    "CONSTRAINT", "NOT", "NULL", "PRIMARY", "UNIQUE", "CHECK", "DEFAULT", "REFERENCES", "COLLATE"};
constexpr std::array<std::string_view, 5> TableConstraintWords{"CONSTRAINT", "PRIMARY", "UNIQUE",
                                                               "CHECK", "FOREIGN"};

bool IsOneOf(const Token &token, std::span<const std::string_view> words)
{
    return std::ranges::any_of(words, [&](std::string_view word) { return token.IsWord(word); });
}

class TableParser final
{
public:
    explicit TableParser(std::string_view sql)
        : reader(sql)
    {}

    TableDeclaration Parse()
    {
        reader.Expect("CREATE");
        reader.Expect("TABLE");
        declaration.table.name = reader.ExpectName("a table");
        reader.Expect('(');
        do {
            if (IsOneOf(reader.Current(), TableConstraintWords))
                ParseTableConstraints();
            else
                ParseColumn();
        } while (reader.Accept(','));
        reader.Expect(')');
        reader.ExpectEnd();
        if (declaration.table.columns.empty())
            throw Error("the table has no column");
        return std::move(declaration);
    }

private:
    void ParseColumn()
    {
        Column column;
        column.name = reader.ExpectName("a column");
        const std::size_t position = declaration.table.columns.size();
        if (!positions.emplace(ToUpper(column.name), position).second)
            throw Error("the table has two columns " + column.name);
        column.declaredType = ParseType();
        declaration.table.columns.push_back(std::move(column));

        while (!IsAtItemEnd()) {
            if (AcceptPrimaryKey())
                AddPrimaryKey({position});
            else if (reader.Accept("UNIQUE"))
                declaration.uniqueKeys.push_back({position});
            else
                SkipConstraintPart();
        }
    }

    std::string ParseType()
    {
        const std::size_t begin = reader.Current().begin;
        std::size_t end = begin;
        while (!IsAtItemEnd() && !IsOneOf(reader.Current(), ColumnConstraintWords)) {
            if (reader.Current().IsSymbol('(')) {
                end = SkipTypeSize();
                continue;
            }
            if (!reader.Current().IsName())
                throw Error("a column's type holds \"" + reader.Current().text + '"');
            end = reader.Current().begin + reader.Current().size;
            reader.Advance();
        }
        return std::string(reader.Text(begin, end));
    }

    /// Steps over `(10, 2)` behind a type and says where it ends.
    std::size_t SkipTypeSize()
    {
        reader.Expect('(');
        while (!reader.Current().IsSymbol(')')) {
            if (reader.IsAtEnd() || reader.Current().IsSymbol('('))
                throw Error("a column's type lacks its closing bracket");
            reader.Advance();
        }
        const std::size_t end = reader.Current().begin + reader.Current().size;
        reader.Advance();
        return end;
    }

    void ParseTableConstraints()
    {
        while (!IsAtItemEnd()) {
            if (AcceptPrimaryKey())
                AddPrimaryKey(Positions(ReadColumnList(reader)));
            else if (reader.Accept("UNIQUE"))
                declaration.uniqueKeys.push_back(Positions(ReadColumnList(reader)));
            else
                SkipConstraintPart();
        }
    }

    bool IsAtItemEnd() const
    {
        return reader.IsAtEnd() || reader.Current().IsSymbol(',') || reader.Current().IsSymbol(')');
    }

    bool AcceptPrimaryKey()
    {
        if (!reader.Current().IsWord("PRIMARY") || !reader.Following().IsWord("KEY"))
            return false;
        reader.Advance();
        reader.Advance();
        return true;
    }

    /// Steps over one piece of a constraint that decides nothing here. A name or value that may
    /// look like a keyword goes together with the word before it.
    void SkipConstraintPart()
    {
        if (reader.Current().IsSymbol('(')) {
            reader.SkipBrackets();
            return;
        }
        const bool takesName = reader.Current().IsWord("CONSTRAINT") ||
                               reader.Current().IsWord("REFERENCES") ||
                               reader.Current().IsWord("COLLATE");
        const bool takesValue = reader.Current().IsWord("DEFAULT");
        reader.Advance();
        if (takesValue && (reader.Current().IsSymbol('+') || reader.Current().IsSymbol('-')))
            reader.Advance();
        if ((takesName || takesValue) && !IsAtItemEnd() && !reader.Current().IsSymbol('('))
            reader.Advance();
    }

    std::vector<std::size_t> Positions(const std::vector<std::string> &names) const
    {
        std::vector<std::size_t> found;
        for (const std::string &name : names) {
            const auto entry = positions.find(ToUpper(name));
            if (entry == positions.end())
                throw Error("a constraint names the column " + name + ", which the table lacks");
            found.push_back(entry->second);
        }
        return found;
    }

    void AddPrimaryKey(std::vector<std::size_t> columns)
    {
        if (hasPrimaryKey)
            throw Error("the table has two primary keys");
        hasPrimaryKey = true;
        const bool isRowId =
            columns.size() == 1 &&
            EqualIgnoringCase(declaration.table.columns[columns.front()].declaredType, "INTEGER");
        if (isRowId)
            declaration.table.rowIdColumn = static_cast<int>(columns.front());
        else
            declaration.uniqueKeys.push_back(std::move(columns));
    }

    TokenReader reader;
    TableDeclaration declaration;
    /// Position by upper-case name: a long list of columns must not cost its square.
    std::unordered_map<std::string, std::size_t> positions;
    bool hasPrimaryKey = false;
};

} // namespace

TableDeclaration ParseCreateTable(std::string_view sql)
{
    return TableParser(sql).Parse();
}

} // namespace Sqlite2
