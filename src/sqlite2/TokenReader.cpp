#include "sqlite2/TokenReader.h"

#include "sqlite2/Error.h"

namespace Sqlite2 {

TokenReader::TokenReader(std::string_view statement)
    : sql(statement)
    , tokens(Tokenize(statement))
{}

void TokenReader::Advance()
{
    if (!IsAtEnd())
        ++at;
}

bool TokenReader::Accept(std::string_view keyword)
{
    if (!Current().IsWord(keyword))
        return false;
    Advance();
    return true;
}

bool TokenReader::Accept(char symbol)
{
    if (!Current().IsSymbol(symbol))
        return false;
    Advance();
    return true;
}

void TokenReader::Expect(std::string_view keyword)
{
    if (!Accept(keyword))
        Fail(std::string(keyword));
}

void TokenReader::Expect(char symbol)
{
    if (!Accept(symbol))
        Fail({'"', symbol, '"'});
}

std::string TokenReader::ExpectName(std::string_view what)
{
    if (!Current().IsName())
        Fail("the name of " + std::string(what));
    std::string name = Current().text;
    Advance();
    return name;
}

void TokenReader::SkipBrackets()
{
    Expect('(');
    for (std::size_t depth = 1; depth > 0; Advance()) {
        if (IsAtEnd())
            Fail("a closing bracket");
        if (Current().IsSymbol('('))
            ++depth;
        else if (Current().IsSymbol(')'))
            --depth;
    }
}

void TokenReader::ExpectEnd()
{
    Accept(';');
    if (!IsAtEnd())
        Fail("the end of the statement");
}

std::string_view TokenReader::Text(std::size_t begin, std::size_t end) const
{
    return sql.substr(begin, end - begin);
}

void TokenReader::Fail(const std::string &expected) const
{
    throw Error(expected + " is missing at character " + std::to_string(Current().begin + 1) +
                " of the statement");
}

std::vector<std::string> ReadColumnList(TokenReader &reader)
{
    std::vector<std::string> names;
    reader.Expect('(');
    do {
        names.push_back(reader.ExpectName("a column"));
        if (!reader.Accept("ASC"))
            reader.Accept("DESC");
    } while (reader.Accept(','));
    reader.Expect(')');
    return names;
}

} // namespace Sqlite2
