#include "cart/dialogs/ShoppingCartAddRow.h"

#include "base/Errors.h"
#include "base/Numbers.h"
#include "cart/dialogs/AmountText.h"
#include "core/CatalogueQueries.h"
#include "core/queries/ArtNr.h"
#include "widgets/FieldColour.h"

#include <QLabel>
#include <QLineEdit>

#include <algorithm>
#include <utility>

namespace Tesk {

namespace {

constexpr QLatin1String NotFound("-1");

QLineEdit *AddField(const char *name, int index, QWidget *dialog)
{
    auto *const field = new QLineEdit(dialog);
    field->setObjectName(QLatin1String(name) + QString::number(index));
    return field;
}

/// The field's text as it shows: a line end or tab that came with pasted text shows as a blank, and
/// in the cart file it would part lines.
QString TextOf(const QLineEdit *field)
{
    QString text = field->text();
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return !character.isPrint(); },
        QLatin1Char(' '));
    return text;
}

bool IsAmount(const QString &text)
{
    const std::optional<double> value = AmountOf(text);
    return value && *value >= SmallestAmount && *value <= LargestAmount;
}

} // namespace

ShoppingCartAddRow::ShoppingCartAddRow(int index, const CatalogueQueries &queries,
                                       TextLookup textLookup, QWidget *dialog)
    : queries(queries)
    , getText(std::move(textLookup))
    , tbArtNrTesk(AddField("tbArtNrTesk", index, dialog))
    , lblOr(new QLabel(dialog))
    , tbArtNrCompetition(AddField("tbArtNrCompetition", index, dialog))
    , tbAmount(AddField("tbAmount", index, dialog))
    , tbCatNr(AddField("tbCatNr", index, dialog))
{
    lblOr->setObjectName(QStringLiteral("lblOr%1").arg(index));
    tbAmount->setAlignment(Qt::AlignRight);
    QObject::connect(tbAmount, &QLineEdit::textEdited, dialog, [this] { ClearMendedAmount(); });
}

void ShoppingCartAddRow::Clear()
{
    for (QLineEdit *const field : Fields())
        field->clear();
    tbAmount->setText(QStringLiteral("1"));
    lookedUpReference.clear();
    SetArtNrError({});
    SetAmountError(false);
    ShowFieldError(tbArtNrCompetition, false);
}

CartRowEntry ShoppingCartAddRow::Entry() const
{
    const QString amount = TextOf(tbAmount);
    return {TextOf(tbArtNrTesk), TextOf(tbArtNrCompetition).trimmed(),
            IsAmount(amount) ? ToInt16(*AmountOf(amount)) : qint16{0}, TextOf(tbCatNr)};
}

std::array<QLineEdit *, 4> ShoppingCartAddRow::Fields() const
{
    return {tbArtNrTesk, tbArtNrCompetition, tbAmount, tbCatNr};
}

bool ShoppingCartAddRow::HasArtNr() const
{
    return !tbArtNrTesk->text().isEmpty();
}

std::optional<ShoppingCartAddRow::Fault> ShoppingCartAddRow::Leave(const QWidget *field)
{
    if (field == tbArtNrCompetition)
        LookUpReference();
    else if (field == tbArtNrTesk)
        return CheckArtNr();
    else if (field == tbAmount)
        return CheckAmount();
    return std::nullopt;
}

std::optional<ShoppingCartAddRow::Fault> ShoppingCartAddRow::StandingFault()
{
    if (artNrError)
        return ArtNrFault();
    if (HasArtNr() && TextOf(tbAmount).trimmed().isEmpty())
        SetAmountError(true);
    if (hasAmountError)
        return AmountFault();
    return std::nullopt;
}

void ShoppingCartAddRow::LookUpReference()
{
    const QString reference = TextOf(tbArtNrCompetition).trimmed();
    // Passing through the field must not undo what the user made of the number it had given.
    if (reference == lookedUpReference && (reference.isEmpty() || HasArtNr()))
        return;
    lookedUpReference = reference;
    if (reference.isEmpty()) {
        ShowFieldError(tbArtNrCompetition, false);
        return;
    }
    tbArtNrTesk->setText(queries.FindArtNrsByRefNo(reference));
    SetArtNrError({});
    // The only sign that the competitor's number is unknown: nothing is said and nothing barred.
    ShowFieldError(tbArtNrCompetition, !HasArtNr());
}

std::optional<ShoppingCartAddRow::Fault> ShoppingCartAddRow::ArtNrFault() const
{
    return artNrError ? std::optional(Fault{*artNrError, tbArtNrTesk}) : std::nullopt;
}

std::optional<ShoppingCartAddRow::Fault> ShoppingCartAddRow::CheckArtNr()
{
    SetArtNrError({});
    const QString artNr = NormaliseArtNr(TextOf(tbArtNrTesk));
    if (artNr != tbArtNrTesk->text())
        tbArtNrTesk->setText(artNr);
    if (artNr.isEmpty())
        return std::nullopt;
    try {
        if (queries.FindProductIdsByArtNr(artNr) == NotFound)
            SetArtNrError(getText(QStringLiteral("ucShoppingCartManualArtNrTeskError")));
    } catch (const CatalogueError &error) {
        SetArtNrError(error.MessageIn(getText));
    }
    return ArtNrFault();
}

std::optional<ShoppingCartAddRow::Fault> ShoppingCartAddRow::CheckAmount()
{
    const QString text = TextOf(tbAmount);
    SetAmountError(!text.trimmed().isEmpty() && !IsAmount(text));
    return hasAmountError ? std::optional(AmountFault()) : std::nullopt;
}

void ShoppingCartAddRow::ClearMendedAmount()
{
    if (hasAmountError && IsAmount(TextOf(tbAmount)))
        SetAmountError(false);
}

void ShoppingCartAddRow::SetArtNrError(const std::optional<QString> &message)
{
    artNrError = message;
    ShowFieldError(tbArtNrTesk, message.has_value());
}

void ShoppingCartAddRow::SetAmountError(bool isError)
{
    hasAmountError = isError;
    ShowFieldError(tbAmount, isError);
}

ShoppingCartAddRow::Fault ShoppingCartAddRow::AmountFault()
{
    return {getText(QStringLiteral("ucShoppingCartManualAmountError")), tbAmount};
}

} // namespace Tesk
