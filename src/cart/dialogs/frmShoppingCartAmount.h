#pragma once

#include "cart/dialogs/DialogAction.h"

#include <QDialog>
#include <QString>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace Tesk {

/// Asks for the amount of a product that goes into the shopping cart. Each opening starts afresh
/// with the amount 1 and the current language's texts.
class frmShoppingCartAmount final : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(qint32 Action READ Action)

public:
    /// `textLookup` gives the text of a key in the current language.
    explicit frmShoppingCartAmount(std::function<QString(const QString &key)> textLookup,
                                   QWidget *owner = nullptr);

    /// One of the values of DialogAction. Escape and the window's close box cancel.
    qint32 Action() const { return action; }
    /// The amount that was confirmed last, 0 to 1000: the number that the user typed, above 0 and
    /// below 1000, rounded halves to even.
    qint16 Amount() const { return amount; }

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void Build();
    void SetCaptions();
    void SelectAmount();
    void ColourError();
    void SetErrorVisible(bool visible);
    void Confirm();

    std::function<QString(const QString &)> getText;
    QLabel *lblAmount;
    QLineEdit *tbAmount;
    QLabel *lblError;
    QPushButton *OKButton;
    QPushButton *CancelButton;
    qint32 action = DialogAction::Cancelled;
    qint16 amount = 0;
    bool isOpening = false;
};

} // namespace Tesk
