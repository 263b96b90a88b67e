#pragma once

#include "cart/dialogs/CartRowEntry.h"
#include "cart/dialogs/DialogAction.h"
#include "cart/dialogs/ShoppingCartAddRow.h"

#include <QDialog>

#include <array>
#include <memory>

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace Tesk {

/// Asks for up to ten articles at once, each by its own number or by a competitor's, with an amount
/// and a category. A number is looked up when its field is left; one that is unknown keeps its
/// field red and bars OK while the other rows are filled. Each opening starts with empty rows and
/// the current language's texts.
class frmShoppingCartAdd final : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(qint32 Action READ Action)

public:
    static constexpr int RowCount = 10;
    using Entries = std::array<CartRowEntry, RowCount>;

    /// `queries` outlives the dialog; `textLookup` gives the text of a key in the current language.
    frmShoppingCartAdd(const CatalogueQueries &queries, ShoppingCartAddRow::TextLookup textLookup,
                       QWidget *owner = nullptr);
    ~frmShoppingCartAdd() override;

    /// One of the values of DialogAction. Escape and the window's close box cancel.
    qint32 Action() const { return action; }
    /// The rows as they are filled now, rows 0 to 9.
    Entries Rows() const;

protected:
    void showEvent(QShowEvent *event) override;

private:
    using Fault = ShoppingCartAddRow::Fault;

    void Build();
    void AddRow(int index);
    void SetCaptions();
    void SetTabOrder();
    void FocusChanged(const QWidget *old, const QWidget *now);
    std::optional<Fault> LeaveField(const QWidget *field);
    std::optional<Fault> StandingFault();
    /// The focus goes on to `next`; without one it stays where the user has taken it.
    void Report(const QString &message, QLineEdit *next = nullptr);
    void FocusOn(QLineEdit *field);
    void Confirm();

    const CatalogueQueries &queries;
    ShoppingCartAddRow::TextLookup getText;
    QGridLayout *grid = nullptr;
    std::array<QLabel *, 4> lblDesc{};
    std::array<std::unique_ptr<ShoppingCartAddRow>, RowCount> rows;
    QPushButton *btnOK;
    QPushButton *btnCancel;
    qint32 action = DialogAction::Cancelled;
    bool isReporting = false;
    /// Its text is selected as soon as the focus is there.
    QLineEdit *fieldToSelect = nullptr;
};

} // namespace Tesk
