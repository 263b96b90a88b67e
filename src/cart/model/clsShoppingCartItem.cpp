#include "cart/model/clsShoppingCartItem.h"

#include "base/Errors.h"
#include "base/Numbers.h"

#include <QStringList>

namespace Tesk {

namespace {

constexpr QLatin1String LineEnd("\r\n");
constexpr QLatin1Char FieldSeparator(';');

} // namespace

void clsShoppingCartItem::AddSetTemplate(const std::vector<SetTemplateRow> &entries, int lowerBound)
{
    ShoppingCartItemList members(lowerBound);
    for (const SetTemplateRow &entry : entries) {
        auto member = std::make_shared<clsShoppingCartItem>();
        member->Id = entry.id;
        member->ArtNr = entry.artNr;
        member->Title = entry.title;
        member->Amount = ToInt16(entry.amount);
        members.Append(std::move(member));
    }
    SetItems = std::move(members);
}

QString clsShoppingCartItem::Serialize() const
{
    QString text = SerializeLine() + LineEnd;
    if (SetItems) {
        for (const ShoppingCartItemList::Item &member : *SetItems)
            text += member->SerializeLine() + LineEnd;
    }
    return text + LineEnd;
}

void clsShoppingCartItem::DeleteSubItem(qint16 index)
{
    if (!SetItems)
        throw SubscriptError(
            QStringLiteral("The article %1 is no set and has no members to delete.").arg(ArtNr));
    SetItems->Remove(index);
}

QString clsShoppingCartItem::SerializeLine() const
{
    const QStringList fields{Id, ArtNr, Title, QString::number(Amount), AltCategory};
    return fields.join(FieldSeparator);
}

} // namespace Tesk
