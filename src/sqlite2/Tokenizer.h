#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Sqlite2 {

struct Token
{
    enum class Kind {
        Word,   ///< an unquoted name or keyword
        Quoted, ///< a name or text in '…', "…" or […]
        Number,
        Symbol, ///< one character
        End     ///< behind the last
    };

    Kind kind = Kind::End;
    /// What the token says; a quoted one without its quotes, doubled quotes made single.
    std::string text;
    /// Where it stands in the statement, from 0, and how many bytes it takes there.
    std::size_t begin = 0;
    std::size_t size = 0;

    bool IsWord(std::string_view keyword) const;
    bool IsSymbol(char symbol) const;
    bool IsName() const { return kind == Kind::Word || kind == Kind::Quoted; }
};

/// Cuts a statement into tokens, blanks and comments left out; the last is always an End token.
/// Throws Error for a quote without its end or a character that SQL does not use.
std::vector<Token> Tokenize(std::string_view sql);

} // namespace Sqlite2
