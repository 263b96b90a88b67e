#pragma once

#include "cart/dialogs/CartRowEntry.h"

#include <QString>

#include <array>
#include <functional>
#include <optional>

class QLabel;
class QLineEdit;
class QWidget;

namespace Tesk {

class CatalogueQueries;

/// One row of frmShoppingCartAdd: its controls, the look-ups when one of its fields is left, and
/// what is wrong with it. The dialog owns the controls.
class ShoppingCartAddRow final
{
public:
    using TextLookup = std::function<QString(const QString &key)>;

    /// What is wrong with a field, in words for the user.
    struct Fault
    {
        QString message;
        QLineEdit *field;
    };

    ShoppingCartAddRow(int index, const CatalogueQueries &queries, TextLookup textLookup,
                       QWidget *dialog);

    ShoppingCartAddRow(const ShoppingCartAddRow &) = delete;
    ShoppingCartAddRow &operator=(const ShoppingCartAddRow &) = delete;

    /// Empties the row, amount 1, no faults.
    void Clear();
    CartRowEntry Entry() const;

    /// The article number, the competitor's number, the amount and the category.
    std::array<QLineEdit *, 4> Fields() const;
    QLabel *OrLabel() const { return lblOr; }

    bool HasArtNr() const;
    /// The user is done with `field` of any row: looks up what it names and colours it. The fault
    /// that came to light, if any.
    std::optional<Fault> Leave(const QWidget *field);
    /// The fault that stands in the way of adding the row. An article without an amount is one.
    std::optional<Fault> StandingFault();

private:
    void LookUpReference();
    std::optional<Fault> ArtNrFault() const;
    std::optional<Fault> CheckArtNr();
    std::optional<Fault> CheckAmount();
    void ClearMendedAmount();
    void SetArtNrError(const std::optional<QString> &message);
    void SetAmountError(bool isError);
    Fault AmountFault();

    const CatalogueQueries &queries;
    TextLookup getText;
    QLineEdit *tbArtNrTesk;
    QLabel *lblOr;
    QLineEdit *tbArtNrCompetition;
    QLineEdit *tbAmount;
    QLineEdit *tbCatNr;
    QString lookedUpReference;
    /// What is wrong with the article number; nothing for one in order.
    std::optional<QString> artNrError;
    bool hasAmountError = false;
};

} // namespace Tesk
