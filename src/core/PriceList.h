#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace Tesk {

class Registry;

/// The customer's prices, one for each article number, from a text file that he chose.
class PriceList final
{
public:
    explicit PriceList(Registry &settings);

    /// Loads the list named by the setting `PriceListPath`, if any. When that fails, the setting is
    /// deleted and the result is the message to show; otherwise it is empty.
    QString LoadPriceListAtStart();

    /// Replaces the list by the file's and stores its path. The file is 8-bit text; a line holds an
    /// article number, a tab and a price, other lines are skipped. Throws FileError or
    /// DuplicateKeyError; the old list is gone then and the lines before the fault stand.
    void LoadPriceList(const QString &path);

    /// True from the first load on, even of an empty list.
    bool HasPriceList() const { return prices.has_value(); }

    /// The price as the list has it and "&nbsp;EUR"; empty without a price for the article number.
    /// Blanks in the article number do not count.
    QString GetPrice(const QString &artNr) const;

private:
    Registry &registry;
    std::optional<QHash<QString, QString>> prices; ///< keys without blanks
};

} // namespace Tesk
