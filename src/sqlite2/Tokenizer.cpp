#include "sqlite2/Tokenizer.h"

#include "sqlite2/AsciiText.h"
#include "sqlite2/Error.h"

#include <algorithm>

namespace Sqlite2 {

namespace {

constexpr std::string_view Blanks = " \t\n\f\r";
constexpr std::string_view Symbols = "()+-*/%=<>!|&~,;.?:#@$^{}\\";

bool IsNameCharacter(char c)
{
    const char upper = ToUpper(c);
    return (upper >= 'A' && upper <= 'Z') || IsDigit(c) || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

class Scanner final
{
public:
    explicit Scanner(std::string_view statement)
        : sql(statement)
    {}

    std::vector<Token> Run()
    {
        std::vector<Token> tokens;
        for (SkipBlanksAndComments(); at < sql.size(); SkipBlanksAndComments()) {
            Token token;
            token.begin = at;
            Scan(token);
            token.size = at - token.begin;
            tokens.push_back(std::move(token));
        }
        Token end;
        end.begin = sql.size();
        tokens.push_back(std::move(end));
        return tokens;
    }

private:
    void SkipBlanksAndComments()
    {
        while (at < sql.size()) {
            const std::string_view rest = sql.substr(at);
            if (Blanks.find(rest.front()) != std::string_view::npos)
                ++at;
            else if (rest.starts_with("--"))
                at = EndOf("\n", at);
            else if (rest.starts_with("/*"))
                at = EndOf("*/", at + 2);
            else
                return;
        }
    }

    /// Behind the mark's next place; a comment may also end with the statement.
    std::size_t EndOf(std::string_view mark, std::size_t from) const
    {
        const std::size_t found = sql.find(mark, from);
        return found == std::string_view::npos ? sql.size() : found + mark.size();
    }

    void Scan(Token &token)
    {
        const char first = sql[at];
        if (first == '\'' || first == '"' || first == '[')
            ScanQuoted(token, first == '[' ? ']' : first);
        else if (IsDigit(first))
            ScanRun(token, Token::Kind::Number, [](char c) { return IsDigit(c) || c == '.'; });
        else if (IsNameCharacter(first))
            ScanRun(token, Token::Kind::Word, IsNameCharacter);
        else
            ScanSymbol(token, first);
    }

    void ScanQuoted(Token &token, char closing)
    {
        token.kind = Token::Kind::Quoted;
        for (++at; at < sql.size(); ++at) {
            const bool isDoubled = closing != ']' && at + 1 < sql.size() && sql[at + 1] == closing;
            if (sql[at] == closing && !isDoubled) {
                ++at;
                return;
            }
            if (sql[at] == closing)
                ++at;
            token.text.push_back(sql[at]);
        }
        throw Error("a quote that begins at character " + std::to_string(token.begin + 1) +
                    " has no end");
    }

    template <typename Predicate>
    void ScanRun(Token &token, Token::Kind kind, Predicate belongs)
    {
        const std::string_view rest = sql.substr(at);
        const auto end = std::ranges::find_if_not(rest, belongs);
        token.kind = kind;
        token.text.assign(rest.begin(), end);
        at += token.text.size();
    }

    void ScanSymbol(Token &token, char symbol)
    {
        if (Symbols.find(symbol) == std::string_view::npos)
            throw Error("character " + std::to_string(at + 1) + " is none that SQL uses");
        token.kind = Token::Kind::Symbol;
        token.text.assign(1, symbol);
        ++at;
    }

    std::string_view sql;
    std::size_t at = 0;
};

} // namespace

bool Token::IsWord(std::string_view keyword) const
{
    return kind == Kind::Word && EqualIgnoringCase(text, keyword);
}

bool Token::IsSymbol(char symbol) const
{
    return kind == Kind::Symbol && text.front() == symbol;
}

std::vector<Token> Tokenize(std::string_view sql)
{
    return Scanner(sql).Run();
}

} // namespace Sqlite2
