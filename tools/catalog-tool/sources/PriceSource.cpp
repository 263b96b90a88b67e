#include "sources/PriceSource.h"

#include "sources/Problems.h"
#include "sources/TextFile.h"

#include <QDir>

namespace Tesk {

namespace {

constexpr QLatin1String ColumnNames("artNr\tprice");

} // namespace

QString Price::Key() const
{
    return QString(artNr).remove(QLatin1Char(' '));
}

PriceSource::PriceSource(const QDir &folder, Problems &problems)
{
    if (!folder.exists(File()))
        return;
    const QStringList lines = ReadSourceLines(folder, File(), problems);
    if (lines.value(0) != ColumnNames)
        problems.Add(File(), 1,
                     QStringLiteral("the first line has to name the columns artNr and price, with "
                                    "one tab between them; add it"));
    for (int i = 1; i < lines.size(); ++i) {
        const QStringList parts = lines[i].split(QLatin1Char('\t'));
        if (parts.size() != 2) {
            problems.Add(File(), i + 1,
                         QStringLiteral("the line has %1 tabs; write an article number, one tab "
                                        "and a price")
                             .arg(parts.size() - 1));
            continue;
        }
        CheckCodePage(parts[0], File(), i + 1, problems);
        CheckCodePage(parts[1], File(), i + 1, problems);
        prices.append({i + 1, parts[0], parts[1]});
    }
}

QString PriceSource::File()
{
    return QStringLiteral("prices.tsv");
}

} // namespace Tesk
