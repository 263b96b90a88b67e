#include "cart/pane/CartMessages.h"

#include "base/Errors.h"
#include "base/Numbers.h"
#include "cart/dialogs/AmountText.h"
#include "cart/model/clsShoppingCart.h"
#include "cart/pane/Log.h"

#include <QStringList>

#include <algorithm>
#include <optional>

namespace Tesk::CartMessages {

namespace {

const QLatin1String AmountChange("amountChange:");
const QLatin1String AltCategoryChange("altCategoryChange:");
const QLatin1String DelItem("delItem:");

constexpr int FieldPrefixLength = 4;
constexpr qint16 NoMember = -1;

struct LineKey
{
    qint16 item;
    /// Nothing for an item's own line.
    std::optional<qint16> member;
};

QString Piece(const QStringList &pieces, qsizetype index)
{
    if (index >= pieces.size())
        throw SubscriptError(QStringLiteral("The shopping cart's page reports \"%1\", which lacks "
                                            "a part. Install the catalogue's pages again.")
                                 .arg(pieces.join(u':')));
    return pieces.at(index);
}

LineKey Parse(const QString &key)
{
    if (!key.contains(u'_'))
        return {ToInt16(key), std::nullopt};
    const QStringList indexes = key.split(u'_');
    return {ToInt16(indexes.at(0)), ToInt16(indexes.at(1))};
}

clsShoppingCartItem &Target(const QStringList &pieces, const clsShoppingCart &cart)
{
    const LineKey key = Parse(Piece(pieces, 1).mid(FieldPrefixLength));
    const auto &item = cart.Entries().At(key.item);
    if (!key.member)
        return *item;
    if (!item->SetItems)
        throw SubscriptError(QStringLiteral("\"%1\" is no set.").arg(item->ArtNr));
    return *item->SetItems->At(*key.member);
}

qint16 AmountFrom(const QString &text)
{
    const qint16 amount = ToInt16(AmountOf(text).value_or(SmallestAmount));
    return std::clamp(amount, SmallestAmount, LargestAmount);
}

} // namespace

void StoreEdit(const QString &text, clsShoppingCart &cart)
{
    const QStringList pieces = text.split(u':');
    try {
        if (text.startsWith(AmountChange)) {
            const qint16 amount = AmountFrom(Piece(pieces, 2));
            Target(pieces, cart).Amount = amount;
        } else if (text.contains(AltCategoryChange)) {
            Piece(pieces, 2);
            Target(pieces, cart).AltCategory = pieces.mid(2).join(u':');
        }
    } catch (const CatalogueError &error) {
        qCWarning(cartLog, "\"%ls\" changes nothing: %ls", qUtf16Printable(text),
                  qUtf16Printable(error.Message()));
    }
}

bool IsDeletion(const QString &text)
{
    return text.startsWith(DelItem);
}

void DeleteLine(const QString &text, clsShoppingCart &cart)
{
    const LineKey key = Parse(Piece(text.split(u':'), 1));
    cart.DeleteItem(key.item, key.member.value_or(NoMember));
}

} // namespace Tesk::CartMessages
