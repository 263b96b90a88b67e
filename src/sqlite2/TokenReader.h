#pragma once

#include "sqlite2/Tokenizer.h"

#include <string>
#include <string_view>
#include <vector>

namespace Sqlite2 {

/// Steps through a statement's tokens. What is required and missing throws Error.
class TokenReader final
{
public:
    explicit TokenReader(std::string_view statement);

    const Token &Current() const { return tokens[at]; }
    const Token &Following() const { return tokens[at + 1 < tokens.size() ? at + 1 : at]; }
    bool IsAtEnd() const { return Current().kind == Token::Kind::End; }

    /// Steps over the current token; never beyond the end.
    void Advance();

    /// Steps over the keyword or symbol when it is the current token, and says whether it was.
    bool Accept(std::string_view keyword);
    bool Accept(char symbol);

    void Expect(std::string_view keyword);
    void Expect(char symbol);

    /// The current token as a name of what is meant ("a table"), stepped over.
    std::string ExpectName(std::string_view what);

    /// Steps over everything from an opening bracket to the one that closes it.
    void SkipBrackets();

    /// Only a semicolon may follow.
    void ExpectEnd();

    /// The statement's text from one offset up to another.
    std::string_view Text(std::size_t begin, std::size_t end) const;

private:
    [[noreturn]] void Fail(const std::string &expected) const;

    std::string_view sql;
    std::vector<Token> tokens;
    std::size_t at = 0;
};

/// The names between brackets, as in `(a, b DESC)`; sort orders are stepped over.
std::vector<std::string> ReadColumnList(TokenReader &reader);

} // namespace Sqlite2
