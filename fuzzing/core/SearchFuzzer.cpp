#include "base/Errors.h"
#include "core/CatalogueQueries.h"
#include "core/FileWatch.h"
#include "core/SQLiteWrapper.h"
#include "core/StringHelper.h"
#include "support/Require.h"
#include "support/Scratch.h"

#include <QFile>
#include <QStringList>

#include <algorithm>

using namespace Tesk;
using Fuzzing::Require;

namespace {

struct Product
{
    QString id;
    QString name;
};

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
            QStringLiteral("SELECT p.ID, l.name FROM products_global p"
                           " INNER JOIN products_localized l ON (p.ID=l.ID AND l.lang='en')"
                           " ORDER BY p.artNr"));
        for (int row = 1; row <= rows.UpperRow(); ++row)
            products.append({rows.Text(row, 0), rows.Text(row, 1)});
        Require(!products.isEmpty(), "the catalogue has products");
    }

    const CatalogueQueries &Queries() const { return queries; }
    const SQLiteWrapper &Database() const { return database; }

    /// The products whose names hold all of the words, found without the database.
    QStringList IdsByWords(const QStringList &words) const
    {
        QStringList ids;
        for (const Product &product : products) {
            const bool holdsAll =
                std::all_of(words.begin(), words.end(), [&product](const QString &word) {
                    return product.name.contains(word, Qt::CaseInsensitive);
                });
            if (holdsAll)
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

void SearchByDescription(const Catalogue &catalogue, const QString &typed)
{
    const QString text = MaskNonAscii(typed);
    const ResultTable table = catalogue.Queries().SearchByDescription(text);
    CheckShape(table);
    const QStringList words = text.split(u' ');
    if (text.trimmed().isEmpty() || !IsPlain(words))
        return;
    QStringList found;
    for (int row = 1; row <= table.UpperRow(); ++row)
        found.append(GetField(QStringLiteral("p.ID"), table, row));
    Require(found == catalogue.IdsByWords(words), "a search finds what holds all of its words");
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
        CheckShape(queries.SearchByArtNr(MaskNonAscii(first)));
        break;
    case u's':
        CheckShape(queries.SearchProducts(first, second, lines.value(3), lines.value(4), false));
        break;
    case u't':
        CheckShape(queries.SearchProducts(first, second, lines.value(3), lines.value(4), true));
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
