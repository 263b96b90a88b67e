#include "cart/file/CartRecords.h"

#include "base/Errors.h"
#include "base/Numbers.h"
#include "cart/model/clsShoppingCart.h"

#include <algorithm>
#include <utility>

namespace Tesk {

namespace {

constexpr QLatin1Char FieldSeparator(';');
constexpr qsizetype FieldCount = 5;
constexpr qsizetype LongestQuote = 60;
constexpr int MostItems = clsShoppingCart::MostItems;

const QString Advice = QStringLiteral(
    "The shopping cart holds the articles before it. Mend the file and load it again.");

/// The text as a message can show it, whatever the file holds.
QString Quote(const QString &text)
{
    QString quote = text.left(LongestQuote);
    std::replace_if(
        quote.begin(), quote.end(), [](QChar character) { return !character.isPrint(); },
        QLatin1Char('?'));
    return text.size() > LongestQuote ? quote + QChar(0x2026) : quote;
}

} // namespace

CartRecords::CartRecords(const QString &nameOfFile, clsShoppingCart &cart)
    : fileName(nameOfFile)
    , cart(cart)
{}

void CartRecords::TakeLine(const QString &line)
{
    ++lineNumber;
    if (line.isEmpty())
        EndRecord();
    else if (head)
        members.Append(ItemOf(line));
    else
        head = ItemOf(line);
    if (members.UpperBound() >= MostItems)
        throw OverflowError(
            QStringLiteral("%1 is one line too many for a set: it can hold %2 articles. %3")
                .arg(Place())
                .arg(MostItems)
                .arg(Advice),
            {QStringLiteral("errorCartMembers"), PlaceAndLimit()});
}

void CartRecords::EndRecord()
{
    if (!head)
        return;
    if (cart.Entries().UpperBound() + 1 >= MostItems)
        throw OverflowError(
            QStringLiteral("%1 ends one article too many: a shopping cart can hold %2. %3")
                .arg(Place())
                .arg(MostItems)
                .arg(Advice),
            {QStringLiteral("errorCartItems"), PlaceAndLimit()});
    head->SetItems = std::exchange(members, ShoppingCartItemList());
    cart.AddItem(std::exchange(head, nullptr));
}

ShoppingCartItemList::Item CartRecords::ItemOf(const QString &line) const
{
    const QStringList fields = line.split(FieldSeparator);
    if (fields.size() < FieldCount)
        throw SubscriptError(
            QStringLiteral("%1 has fewer than %2 fields parted by \";\": \"%3\". %4")
                .arg(Place(), QString::number(FieldCount), Quote(line), Advice),
            {QStringLiteral("errorCartFields"),
             {QString::number(lineNumber), fileName, Quote(line)}});
    auto item = std::make_shared<clsShoppingCartItem>();
    item->Id = fields[0];
    item->ArtNr = fields[1];
    item->Title = fields[2];
    item->AltCategory = fields[4];
    try {
        item->Amount = ToInt16(fields[3]);
    } catch (const ConversionError &) {
        throw ConversionError(
            QStringLiteral(
                "%1 has the amount \"%2\", which is no whole number from -32768 to 32767. %3")
                .arg(Place(), Quote(fields[3]), Advice),
            {QStringLiteral("errorCartAmount"),
             {QString::number(lineNumber), fileName, Quote(fields[3])}});
    }
    return item;
}

QStringList CartRecords::PlaceAndLimit() const
{
    return {QString::number(lineNumber), fileName, QString::number(MostItems)};
}

QString CartRecords::Place() const
{
    return QStringLiteral("Line %1 of the shopping cart file \"%2\"").arg(lineNumber).arg(fileName);
}

} // namespace Tesk
