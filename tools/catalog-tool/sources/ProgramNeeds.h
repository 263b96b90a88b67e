#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// What the catalogue program asks of a catalogue: the names that it looks up and that a catalogue
/// therefore has to define. The one list of them; the checks read it.
namespace Tesk::ProgramNeeds {

struct Page
{
    QString name;           ///< file name in `content`
    QStringList elementIds; ///< elements that the program fills
};

struct Table
{
    QString name;
    QStringList columns; ///< columns that the program's statements and pages name
};

/// "ge", "en", "fr", "sp", "it", in the program's order.
const QStringList &LanguageCodes();

/// Every key that the program looks up in the language files.
const QStringList &TextKeys();

/// Those of the keys whose text stands inside quotation marks on a page: in confirm('…'), in an
/// argument of a script function, in alt="…" or title="…".
const QStringList &QuotedTextKeys();

const QList<Page> &Pages();

/// The pictures that the program's pages name, by file name in `content/img`.
const QStringList &PageImages();

const QList<Table> &Tables();

/// The makers whose reference numbers the competition search offers.
const QStringList &Competitors();

} // namespace Tesk::ProgramNeeds
