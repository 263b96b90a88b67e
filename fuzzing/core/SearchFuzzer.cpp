#include "base/Errors.h"
#include "core/CatalogueQueries.h"
#include "core/FileWatch.h"
#include "core/SQLiteWrapper.h"
#include "core/StringHelper.h"
#include "core/queries/ArtNr.h"
#include "support/Require.h"
#include "support/Scratch.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>

using namespace Tesk;
using Fuzzing::Require;

namespace {

struct Product
{
    QString id;
    QString artNr;
    QString name;
    double length;
};

using Condition = std::function<bool(const Product &)>;

/// A product without a length meets no condition on it.
double LengthOf(const QString &text)
{
    bool isNumber = false;
    const double length = text.toDouble(&isNumber);
    return isNumber ? length : std::numeric_limits<double>::quiet_NaN();
}

/// The sample catalogue, opened as the program opens it. From then on no file may be touched.
class Catalogue final
{
public:
    Catalogue()
    {
        Fuzzing::WatchFiles();
        Require(database.Open(QStringLiteral(SAMPLES_DIR "/catalog.db")), "the catalogue opens");
        Fuzzing::ForbidFiles();
        const ResultTable rows = database.GetTable(
            QStringLiteral("SELECT p.ID, p.artNr, l.name, p.length FROM products_global p"
                           " INNER JOIN products_localized l ON (p.ID=l.ID AND l.lang='en')"
                           " ORDER BY p.artNr"));
        for (int row = 1; row <= rows.UpperRow(); ++row)
            products.append({rows.Text(row, 0), rows.Text(row, 1), rows.Text(row, 2),
                             LengthOf(rows.Text(row, 3))});
        Require(!products.isEmpty(), "the catalogue has products");
    }

    const CatalogueQueries &Queries() const { return queries; }
    const SQLiteWrapper &Database() const { return database; }

    /// The products that meet the condition, found without the database.
    QStringList Ids(const Condition &isMet) const
    {
        QStringList ids;
        for (const Product &product : products) {
            if (isMet(product))
                ids.append(product.id);
        }
        return ids;
    }

private:
    SQLiteWrapper database{Fuzzing::ScratchFolder()};
    CatalogueQueries queries{database, [] { return QStringLiteral("en"); }, QLocale::c()};
    QList<Product> products;
};

void CheckShape(const ResultTable &table)
{
    Require(table.UpperRow() == -1 || table.UpperRow() >= 1, "a result is empty or has rows");
    Require(!table.HasData() || table.ColumnCount() > 0, "a row has columns");
    for (int row = 0; row <= table.UpperRow(); ++row) {
        for (int column = 0; column < table.ColumnCount(); ++column) {
            const QString text = table.Text(row, column);
            Require(!table.IsNull(row, column) || text.isEmpty(), "NULL is no text");
        }
    }
}

/// Words that mean nothing but themselves to the database.
bool IsPlain(const QStringList &words)
{
    return std::all_of(words.begin(), words.end(), [](const QString &word) {
        return word.compare(QStringLiteral("and"), Qt::CaseInsensitive) != 0 &&
               std::all_of(word.begin(), word.end(), [](QChar c) {
                   return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == u'-');
               });
    });
}

QStringList IdsOf(const ResultTable &table)
{
    QStringList ids;
    for (int row = 1; row <= table.UpperRow(); ++row)
        ids.append(GetField(QStringLiteral("p.ID"), table, row));
    return ids;
}

bool HoldsAll(const QString &text, const QStringList &parts)
{
    return std::all_of(parts.begin(), parts.end(), [&text](const QString &part) {
        return text.contains(part, Qt::CaseInsensitive);
    });
}

void SearchByDescription(const Catalogue &catalogue, const QString &typed)
{
    const QString text = MaskNonAscii(typed);
    const ResultTable table = catalogue.Queries().SearchByDescription(text);
    CheckShape(table);
    const QStringList words = text.split(u' ');
    if (text.trimmed().isEmpty() || !IsPlain(words))
        return;
    Require(IdsOf(table) == catalogue.Ids([&words](const Product &product) {
        return HoldsAll(product.name, words);
    }),
            "a search finds what holds all of its words");
}

void SearchByArtNr(const Catalogue &catalogue, const QString &typed)
{
    const QString text = MaskNonAscii(typed);
    const ResultTable table = catalogue.Queries().SearchByArtNr(text);
    CheckShape(table);
    const QString artNr = NormaliseArtNr(text);
    if (!IsPlain(artNr.split(u' ')))
        return;
    Require(IdsOf(table) == catalogue.Ids([&artNr](const Product &product) {
        return HoldsAll(product.artNr, {artNr});
    }),
            "a search finds the article numbers that hold what was typed");
}

/// Whole millimetres, as far as the text is a plain number of the unit.
std::optional<double> MillimetresOf(const QString &text, const QString &unit)
{
    static const QHash<QString, double> factors{
        {QStringLiteral("mm"), 1}, {QStringLiteral("cm"), 10}, {QStringLiteral("inch"), 24.5}};
    static const QRegularExpression plain(QStringLiteral("^[1-9][0-9]{0,3}$"));
    if (!plain.match(text).hasMatch() || !factors.contains(unit))
        return std::nullopt;
    return std::nearbyint(text.toDouble() * factors.value(unit));
}

/// The lines: description, article number, length and its unit.
void SearchDetail(const Catalogue &catalogue, const QStringList &lines, bool tolerance)
{
    const ResultTable table =
        catalogue.Queries().SearchProducts(lines[0], lines[1], lines[2], lines[3], tolerance);
    CheckShape(table);
    const QStringList words = lines[0].split(u' ');
    const QString artNr = NormaliseArtNr(lines[1]);
    const std::optional<double> length = MillimetresOf(lines[2], lines[3]);
    if (!length || !IsPlain(words) || !IsPlain(artNr.split(u' ')))
        return;
    const auto find = [&](double shortest, double longest) {
        return catalogue.Ids([&](const Product &product) {
            return HoldsAll(product.name, words) && HoldsAll(product.artNr, {artNr}) &&
                   product.length >= shortest && product.length <= longest;
        });
    };
    QStringList expected = tolerance ? QStringList() : find(*length, *length);
    if (expected.isEmpty())
        expected = find(std::nearbyint(*length * 0.9), std::nearbyint(*length * 1.1));
    Require(IdsOf(table) == expected, "a search finds what meets all that was asked for");
}

/// The first line says what is asked for: one of the letters below. The others are what was typed.
void Ask(const Catalogue &catalogue, const QStringList &lines)
{
    const CatalogueQueries &queries = catalogue.Queries();
    const QString first = lines.value(1);
    const QString second = lines.value(2);
    switch (lines.value(0, QStringLiteral("-")).front().unicode()) {
    case u'd':
        SearchByDescription(catalogue, first);
        break;
    case u'a':
        SearchByArtNr(catalogue, first);
        break;
    case u's':
        SearchDetail(catalogue, {first, second, lines.value(3), lines.value(4)}, false);
        break;
    case u't':
        SearchDetail(catalogue, {first, second, lines.value(3), lines.value(4)}, true);
        break;
    case u'c':
        CheckShape(queries.SearchCompetition(first, second));
        break;
    case u'n':
        queries.FindArtNrsByRefNo(first);
        queries.FindProductIdsByRefNo(second);
        queries.FindProductIdsByArtNr(first);
        break;
    case u'i':
        CheckShape(queries.QueryProduct(first));
        CheckShape(queries.QuerySetMembers(first));
        CheckShape(queries.QueryProductsOfCategory(first));
        queries.HasSingleProducts(first);
        break;
    default:
        CheckShape(catalogue.Database().GetTable(lines.mid(1).join(u'\n')));
        break;
    }
}

} // namespace

/// Asks the catalogue for what the input, as UTF-8, says.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Catalogue catalogue;
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (text.isEmpty() || text.front() == u'\n')
        return 0;
    try {
        Ask(catalogue, text.split(u'\n'));
    } catch (const CatalogueError &error) {
        Require(!error.Message().isEmpty(), "an error says what is wrong");
    }
    return 0;
}
