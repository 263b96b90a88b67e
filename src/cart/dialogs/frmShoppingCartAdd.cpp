#include "cart/dialogs/frmShoppingCartAdd.h"

#include "cart/dialogs/DialogMargin.h"
#include "widgets/PlainMessageBox.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShowEvent>

#include <algorithm>
#include <utility>

namespace Tesk {

namespace {

constexpr int RowSpacing = 8;
constexpr int ColumnSpacing = 12;
constexpr int ArtNrCharacters = 22;
constexpr int AmountCharacters = 8;

// The grid's columns; those of the fields in the order of ShoppingCartAddRow::Fields.
constexpr std::array<int, 4> FieldColumns{0, 2, 3, 4};
constexpr int OrColumn = 1;
constexpr int AmountColumn = 3;

constexpr std::array<const char *, 4> HeadingKeys{
    "ucShoppingCartManualArtNrTesk", "ucShoppingCartManualArtNrCompetition",
    "ucShoppingCartManualAmount", "ucShoppingCartManualCatId"};

} // namespace

frmShoppingCartAdd::frmShoppingCartAdd(const CatalogueQueries &queries,
                                       ShoppingCartAddRow::TextLookup textLookup, QWidget *owner)
    : QDialog(owner)
    , queries(queries)
    , getText(std::move(textLookup))
    , btnOK(new QPushButton(this))
    , btnCancel(new QPushButton(this))
{
    Build();
    connect(btnOK, &QPushButton::clicked, this, &frmShoppingCartAdd::Confirm);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
    // Unlike a field's own event, this comes once for each leaving and tells where the focus goes.
    connect(qApp, &QApplication::focusChanged, this, &frmShoppingCartAdd::FocusChanged);
}

frmShoppingCartAdd::~frmShoppingCartAdd()
{
    // The fields lose the focus when they are destroyed, after this class's part is gone.
    disconnect(qApp, nullptr, this, nullptr);
}

void frmShoppingCartAdd::Build()
{
    setObjectName(QStringLiteral("frmShoppingCartAdd"));
    btnOK->setObjectName(QStringLiteral("btnOK"));
    btnCancel->setObjectName(QStringLiteral("btnCancel"));
    btnOK->setDefault(true);
    // A click on a button does not leave the field: a message about it would swallow the click.
    for (QPushButton *const button : {btnOK, btnCancel})
        button->setFocusPolicy(Qt::TabFocus);

    grid = new QGridLayout;
    grid->setHorizontalSpacing(ColumnSpacing);
    grid->setVerticalSpacing(RowSpacing);
    for (size_t i = 0; i < lblDesc.size(); ++i) {
        lblDesc[i] = new QLabel(this);
        lblDesc[i]->setObjectName(QStringLiteral("lblDesc%1").arg(i + 1));
        grid->addWidget(lblDesc[i], 0, FieldColumns[i]);
        grid->setColumnStretch(FieldColumns[i], FieldColumns[i] == AmountColumn ? 0 : 1);
    }
    for (int index = 0; index < RowCount; ++index)
        AddRow(index);

    auto *const buttons = new QHBoxLayout;
    buttons->setSpacing(ColumnSpacing);
    buttons->addStretch();
    buttons->addWidget(btnCancel);
    buttons->addWidget(btnOK);

    auto *const parts = new QVBoxLayout(this);
    parts->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
    parts->setSpacing(DialogMargin);
    parts->addLayout(grid);
    parts->addStretch();
    parts->addLayout(buttons);
    SetTabOrder();
}

void frmShoppingCartAdd::AddRow(int index)
{
    auto &row = rows[static_cast<size_t>(index)];
    row = std::make_unique<ShoppingCartAddRow>(index, queries, getText, this);
    const auto fields = row->Fields();
    for (size_t i = 0; i < fields.size(); ++i) {
        QLineEdit *const field = fields[i];
        const int characters = FieldColumns[i] == AmountColumn ? AmountCharacters : ArtNrCharacters;
        field->setMinimumWidth(field->fontMetrics().averageCharWidth() * characters);
        grid->addWidget(field, index + 1, FieldColumns[i]);
        if (index == 0)
            lblDesc[i]->setBuddy(field);
    }
    grid->addWidget(row->OrLabel(), index + 1, OrColumn, Qt::AlignCenter);
}

void frmShoppingCartAdd::SetTabOrder()
{
    QWidget *last = nullptr;
    for (const auto &row : rows) {
        for (QLineEdit *const field : row->Fields())
            setTabOrder(std::exchange(last, field), field);
    }
    setTabOrder(last, btnCancel);
    setTabOrder(btnCancel, btnOK);
}

void frmShoppingCartAdd::SetCaptions()
{
    setWindowTitle(getText(QStringLiteral("ucShoppingCartManualCaption")));
    btnOK->setText(getText(QStringLiteral("commonButtonOK")));
    btnCancel->setText(getText(QStringLiteral("commonButtonCancel")));
    for (size_t i = 0; i < lblDesc.size(); ++i) {
        const QString heading = getText(QLatin1String(HeadingKeys[i]));
        lblDesc[i]->setText(heading);
        for (size_t row = 0; row < rows.size(); ++row)
            rows[row]->Fields()[i]->setAccessibleName(
                QStringLiteral("%1 %2").arg(QString(heading).remove(u'&')).arg(row + 1));
    }
    // The wide columns share the width of the longest heading.
    int width = 0;
    for (const QLabel *const heading : lblDesc)
        width = std::max(width, heading->sizeHint().width());
    for (const int column : FieldColumns)
        grid->setColumnMinimumWidth(column, column == AmountColumn ? 0 : width);
    for (const auto &row : rows)
        row->OrLabel()->setText(getText(QStringLiteral("commonOr")));
}

void frmShoppingCartAdd::showEvent(QShowEvent *event)
{
    // A spontaneous one is the window's coming back, not an opening.
    if (!event->spontaneous()) {
        action = DialogAction::Cancelled;
        SetCaptions();
        for (const auto &row : rows)
            row->Clear();
        rows.front()->Fields().front()->setFocus();
        adjustSize();
    }
    QDialog::showEvent(event);
}

frmShoppingCartAdd::Entries frmShoppingCartAdd::Rows() const
{
    Entries entries;
    std::transform(rows.begin(), rows.end(), entries.begin(),
                   [](const auto &row) { return row->Entry(); });
    return entries;
}

void frmShoppingCartAdd::FocusChanged(const QWidget *old, const QWidget *now)
{
    if (fieldToSelect && now) {
        QLineEdit *const field = std::exchange(fieldToSelect, nullptr);
        if (field == now)
            field->selectAll();
    }
    // The focus that goes to another window comes back: the field is not left.
    if (isReporting || !now || !isAncestorOf(now))
        return;
    if (const auto fault = LeaveField(old))
        Report(fault->message);
}

std::optional<frmShoppingCartAdd::Fault> frmShoppingCartAdd::LeaveField(const QWidget *field)
{
    for (const auto &row : rows) {
        if (auto fault = row->Leave(field))
            return fault;
    }
    return std::nullopt;
}

std::optional<frmShoppingCartAdd::Fault> frmShoppingCartAdd::StandingFault()
{
    for (const auto &row : rows) {
        if (auto fault = row->StandingFault())
            return fault;
    }
    if (std::none_of(rows.begin(), rows.end(), [](const auto &row) { return row->HasArtNr(); }))
        return Fault{getText(QStringLiteral("ucShoppingCartManualNoArtNrError")),
                     rows.front()->Fields().front()};
    return std::nullopt;
}

void frmShoppingCartAdd::Report(const QString &message, QLineEdit *next)
{
    isReporting = true;
    auto *const box =
        new PlainMessageBox(QMessageBox::NoIcon, windowTitle(), message, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QDialog::finished, this, [this, next] {
        if (next)
            FocusOn(next);
        isReporting = false;
    });
    // Not exec: no event loop of its own inside the change of the focus.
    box->open();
}

void frmShoppingCartAdd::FocusOn(QLineEdit *field)
{
    field->setFocus();
    // In a window that is not active yet the selection would not last.
    if (field->hasFocus())
        field->selectAll();
    else
        fieldToSelect = field;
}

void frmShoppingCartAdd::Confirm()
{
    if (isReporting)
        return;
    // Neither the click nor Enter has left the field that the user typed in last. Its fault waits
    // for its row's turn.
    LeaveField(focusWidget());
    if (const auto fault = StandingFault()) {
        Report(fault->message, fault->field);
        return;
    }
    action = DialogAction::Confirmed;
    accept();
}

} // namespace Tesk
