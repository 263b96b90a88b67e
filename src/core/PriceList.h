#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace Tesk {

class Registry;

/// The customer's prices, one for each article number, from a text file that he chose.
class PriceList
{
public:
    explicit PriceList(Registry &registry);

    /// Loads the list named by the setting `PriceListPath`, if any. When that fails, the setting is
    /// deleted and the result is the message to show; otherwise it is empty.
    QString LoadPriceListAtStart();

    /// Replaces the list by the file's and stores its path. Throws FileError or DuplicateKeyError;
    /// the lines read before the fault then stand.
    void LoadPriceList(const QString &path);

    /// True from the first load on, even of an empty list.
    bool HasPriceList() const { return prices.has_value(); }

    /// The price and "&nbsp;EUR"; empty without a price for the article number.
    QString GetPrice(const QString &artNr) const;

private:
    Registry &registry;
    std::optional<QHash<QString, QString>> prices; ///< keys without blanks
};

} // namespace Tesk
