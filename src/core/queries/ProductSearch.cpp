#include "core/queries/ProductSearch.h"

#include "base/Errors.h"
#include "base/Numbers.h"
#include "core/queries/ArtNr.h"
#include "core/queries/Trim.h"

#include <QLoggingCategory>
#include <QStringList>

#include <limits>

namespace Tesk {

namespace {

Q_LOGGING_CATEGORY(searchLog, "tesk.search")

/// Of a text that the user typed, which may be long.
constexpr int LongestLoggedText = 100;

constexpr double MillimetresOfACentimetre = 10;
/// Not 25.4: the catalogue's own factor, by which its lengths are found.
constexpr double MillimetresOfAnInch = 24.5;

/// Throws ConversionError beyond 32 bits.
double WholeNumber(double value)
{
    const double whole = RoundHalfEven(value);
    using Limits = std::numeric_limits<qint32>;
    if (!(whole >= Limits::min() && whole <= Limits::max()))
        throw ConversionError(QStringLiteral("%1 is too large for a length.").arg(value));
    return whole;
}

/// Another unit takes the number as it stands. Throws ConversionError.
double Millimetres(double value, const QString &unit)
{
    if (unit == QLatin1String("mm"))
        return WholeNumber(value);
    if (unit == QLatin1String("cm"))
        return WholeNumber(value * MillimetresOfACentimetre);
    if (unit == QLatin1String("inch"))
        return WholeNumber(value * MillimetresOfAnInch);
    return value;
}

QString DecimalText(double value)
{
    return QString::number(value, 'g', std::numeric_limits<double>::digits10);
}

QString LengthCondition(double millimetres, bool tolerance)
{
    if (!tolerance)
        return QLatin1String("p.length=") + DecimalText(millimetres);
    return QLatin1String("(p.length between ") + DecimalText(WholeNumber(millimetres * 0.9)) +
           QLatin1String(" AND ") + DecimalText(WholeNumber(millimetres * 1.1)) +
           QLatin1String(")");
}

class ConditionBuilder final
{
public:
    void AddWords(const QString &description);
    void AddArtNr(const QString &artNr);
    void AddLength(const ProductSearch &search, const QLocale &locale);

    SearchCondition condition{QStringLiteral(" WHERE "), true, false};

private:
    void AddWord(const QString &link, const QString &word);
    void AddTerm(const QString &term);
};

void ConditionBuilder::AddWord(const QString &link, const QString &word)
{
    condition.whereClause +=
        link + QLatin1String(" (l.name LIKE '%") + word + QLatin1String("%') ");
    condition.isEmpty = false;
}

void ConditionBuilder::AddTerm(const QString &term)
{
    if (!condition.isEmpty)
        condition.whereClause += QLatin1String(" AND ");
    condition.whereClause += term;
    condition.isEmpty = false;
}

void ConditionBuilder::AddWords(const QString &description)
{
    if (TrimSpaces(description).isEmpty())
        return;
    const QStringList words = description.split(QLatin1Char(' '));
    AddWord({}, words.front());
    for (qsizetype i = 1; i < words.size(); ++i) {
        // The words are joined by AND anyway.
        if (words[i].toUpper() == QLatin1String("AND"))
            ++i;
        if (i < words.size())
            AddWord(QStringLiteral(" AND"), words[i]);
    }
}

void ConditionBuilder::AddArtNr(const QString &artNr)
{
    if (!artNr.isEmpty())
        AddTerm(QLatin1String("p.artNr LIKE '%") + artNr + QLatin1String("%'"));
}

void ConditionBuilder::AddLength(const ProductSearch &search, const QLocale &locale)
{
    const QString text = TrimSpaces(search.length);
    if (text.isEmpty())
        return;
    try {
        const double value = ToDouble(text, locale);
        if (value <= 0)
            return;
        AddTerm(LengthCondition(Millimetres(value, search.unit), search.tolerance));
        condition.usesLength = true;
    } catch (const ConversionError &error) {
        // A length that cannot be read is not asked for.
        qCInfo(searchLog).noquote()
            << "The length is not used:" << error.Message().left(LongestLoggedText);
    }
}

} // namespace

SearchCondition SearchConditionOf(const ProductSearch &search, const QLocale &locale)
{
    ConditionBuilder builder;
    builder.AddWords(search.description);
    builder.AddArtNr(NormaliseArtNr(search.artNr));
    builder.AddLength(search, locale);
    return builder.condition;
}

} // namespace Tesk
