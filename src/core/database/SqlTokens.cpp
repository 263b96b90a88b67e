#include "core/database/SqlTokens.h"

#include "sqlite2/AsciiText.h"

#include <algorithm>
#include <array>

namespace Tesk::Database {

namespace {

using Kind = SqlToken::Kind;
using Sqlite2::IsDigit;

constexpr std::array LongSymbols{"<=", ">=", "<>", "!=", "==", "||", "<<", ">>"};
constexpr QByteArrayView ShortSymbols("()+-*/%&|~<>=,.;");

bool IsBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r' && c != '\v');
}

bool IsWordCharacter(char c)
{
    const auto code = static_cast<unsigned char>(c);
    const char lower = static_cast<char>(c | 0x20);
    return (lower >= 'a' && lower <= 'z') || IsDigit(c) || c == '_' || c == '$' || code >= 0x80U;
}

/// Cuts one token after the other from an SQL text.
class Scanner final
{
public:
    explicit Scanner(QByteArrayView text)
        : sql(text)
    {}

    void SkipBlanks();
    bool AtEnd() const { return position == sql.size(); }
    std::optional<SqlToken> Next();

private:
    char At(qsizetype index) const { return index < sql.size() ? sql[index] : '\0'; }
    std::optional<SqlToken> Take(Kind kind, qsizetype end);
    std::optional<SqlToken> TakeQuoted(Kind kind, char quote);
    qsizetype EndOfWord(qsizetype index) const;
    qsizetype EndOfDigits(qsizetype index) const;
    qsizetype EndOfNumber() const;

    QByteArrayView sql;
    qsizetype position = 0;
};

void Scanner::SkipBlanks()
{
    while (!AtEnd()) {
        if (IsBlank(At(position))) {
            ++position;
        } else if (At(position) == '-' && At(position + 1) == '-') {
            const qsizetype end = sql.indexOf('\n', position);
            position = end < 0 ? sql.size() : end;
        } else if (At(position) == '/' && At(position + 1) == '*' && position + 2 < sql.size()) {
            // Without its end the comment reaches to that of the text.
            const qsizetype end = sql.indexOf("*/", position + 2);
            position = end < 0 ? sql.size() : end + 2;
        } else {
            break;
        }
    }
}

std::optional<SqlToken> Scanner::Take(Kind kind, qsizetype end)
{
    const SqlToken token{kind, position, sql.sliced(position, end - position)};
    position = end;
    return token;
}

std::optional<SqlToken> Scanner::TakeQuoted(Kind kind, char quote)
{
    qsizetype end = position + 1;
    for (;; end += 2) {
        end = sql.indexOf(quote, end);
        if (end < 0)
            return std::nullopt;
        if (quote == ']' || At(end + 1) != quote)
            return Take(kind, end + 1);
    }
}

qsizetype Scanner::EndOfWord(qsizetype index) const
{
    return std::find_if_not(sql.begin() + index, sql.end(), IsWordCharacter) - sql.begin();
}

qsizetype Scanner::EndOfDigits(qsizetype index) const
{
    return std::find_if_not(sql.begin() + index, sql.end(), IsDigit) - sql.begin();
}

qsizetype Scanner::EndOfNumber() const
{
    qsizetype end = EndOfDigits(position);
    if (At(end) == '.')
        end = EndOfDigits(end + 1);
    if (At(end) == 'e' || At(end) == 'E') {
        const qsizetype sign = At(end + 1) == '+' || At(end + 1) == '-' ? 1 : 0;
        if (IsDigit(At(end + 1 + sign)))
            end = EndOfDigits(end + 1 + sign);
    }
    return end;
}

std::optional<SqlToken> Scanner::Next()
{
    const char first = At(position);
    if (first == '\'')
        return TakeQuoted(Kind::String, first);
    if (first == '"' || first == '`')
        return TakeQuoted(Kind::QuotedName, first);
    if (first == '[')
        return TakeQuoted(Kind::QuotedName, ']');
    if (IsDigit(first) || (first == '.' && IsDigit(At(position + 1)))) {
        const qsizetype end = EndOfNumber();
        if (IsWordCharacter(At(end)) && end < sql.size())
            return std::nullopt;
        return Take(Kind::Number, end);
    }
    if (IsWordCharacter(first))
        return Take(Kind::Word, EndOfWord(position));

    const QByteArrayView pair = sql.sliced(position, std::min<qsizetype>(2, sql.size() - position));
    if (std::find(LongSymbols.begin(), LongSymbols.end(), pair) != LongSymbols.end())
        return Take(Kind::Symbol, position + 2);
    if (ShortSymbols.contains(first))
        return Take(Kind::Symbol, position + 1);
    return std::nullopt;
}

} // namespace

bool SqlToken::IsWord(const char *keyword) const
{
    return kind == Kind::Word && text.compare(keyword, Qt::CaseInsensitive) == 0;
}

bool SqlToken::IsAnyWord(std::span<const char *const> keywords) const
{
    return std::any_of(keywords.begin(), keywords.end(),
                       [this](const char *keyword) { return IsWord(keyword); });
}

bool SqlToken::IsSymbol(const char *symbol) const
{
    return kind == Kind::Symbol && text == QByteArrayView(symbol);
}

QByteArray SqlToken::Name() const
{
    if (kind != Kind::QuotedName && kind != Kind::String)
        return text.toByteArray();
    QByteArray name = text.sliced(1, text.size() - 2).toByteArray();
    const char quote = text.front();
    if (quote != '[')
        name.replace(QByteArray(2, quote), QByteArray(1, quote));
    return name;
}

std::optional<SqlTokens> FirstStatement(const QByteArray &sql)
{
    Scanner scanner(sql);
    SqlTokens tokens;
    int depth = 0;
    for (scanner.SkipBlanks(); !scanner.AtEnd(); scanner.SkipBlanks()) {
        std::optional<SqlToken> token = scanner.Next();
        if (!token)
            return std::nullopt;
        if (token->IsSymbol(";") && tokens.empty())
            continue;
        if (token->IsSymbol(";"))
            return depth == 0 ? std::optional(tokens) : std::nullopt;
        if (token->IsSymbol(")"))
            --depth;
        token->depth = depth;
        if (token->IsSymbol("("))
            ++depth;
        if (depth < 0)
            return std::nullopt;
        tokens.push_back(*token);
    }
    return depth == 0 ? std::optional(tokens) : std::nullopt;
}

} // namespace Tesk::Database
