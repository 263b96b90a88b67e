#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <span>
#include <vector>

namespace Tesk::Database {

/// A piece of an SQL text. Blanks and comments are no tokens.
struct SqlToken
{
    enum class Kind { Word, QuotedName, String, Number, Symbol };

    Kind kind = Kind::Symbol;
    qsizetype begin = 0; ///< position in the SQL text, from 0
    QByteArrayView text; ///< as written, quotes included
    int depth = 0;       ///< how many brackets are open; 0 for the outermost brackets themselves

    qsizetype End() const { return begin + text.size(); }
    /// Whether it is this keyword (given in upper case), in any ASCII case.
    bool IsWord(const char *keyword) const;
    bool IsAnyWord(std::span<const char *const> keywords) const;
    bool IsSymbol(const char *symbol) const;
    bool IsName() const { return kind == Kind::Word || kind == Kind::QuotedName; }
    /// The name or text without its quotes.
    QByteArray Name() const;
};

using SqlTokens = std::vector<SqlToken>;

/// The tokens of the text's first statement that is not empty, its closing ";" left out. Nothing
/// for a text that is not well formed: an open string, brackets that do not match, a stray
/// character. The tokens point into `sql`.
std::optional<SqlTokens> FirstStatement(const QByteArray &sql);

} // namespace Tesk::Database
