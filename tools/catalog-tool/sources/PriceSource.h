#pragma once

#include <QList>
#include <QString>

class QDir;

namespace Tesk {

class Problems;

struct Price
{
    int line = 0;
    QString artNr;
    QString price; ///< as it is shown, without the currency

    /// The article number without its blanks, as the program looks a price up.
    QString Key() const;
};

/// The price list, `prices.tsv`: the line of column names that tables have, then a line `article
/// number TAB price` each. Not every catalogue comes with prices, so the file may be missing.
class PriceSource final
{
public:
    /// Lines without exactly one tab and characters outside the code page are problems.
    PriceSource(const QDir &folder, Problems &problems);

    static QString File();

    /// In the file's order.
    const QList<Price> &Prices() const { return prices; }

private:
    QList<Price> prices;
};

} // namespace Tesk
