#include "cart/dialogs/frmShoppingCartAmount.h"

#include "base/Numbers.h"
#include "cart/dialogs/AmountText.h"
#include "cart/dialogs/DialogMargin.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShowEvent>

#include <algorithm>
#include <optional>
#include <utility>

namespace Tesk {

namespace {

constexpr int AmountFieldCharacters = 10;
constexpr int LongestErrorLineCharacters = 60;
constexpr QColor ErrorOnLight(176, 0, 32);
constexpr QColor ErrorOnDark(255, 140, 130);

/// The number above 0 and below 1000 that `text` holds.
std::optional<double> ReadAmount(const QString &text)
{
    const std::optional<double> value = AmountOf(text);
    return value && *value > 0 && *value < 1000 ? value : std::nullopt;
}

int WidthOf(const QWidget *widget, int characters)
{
    return widget->fontMetrics().averageCharWidth() * characters;
}

} // namespace

frmShoppingCartAmount::frmShoppingCartAmount(std::function<QString(const QString &key)> textLookup,
                                             QWidget *owner)
    : QDialog(owner)
    , getText(std::move(textLookup))
    , lblAmount(new QLabel(this))
    , tbAmount(new QLineEdit(this))
    , lblError(new QLabel(this))
    , OKButton(new QPushButton(this))
    , CancelButton(new QPushButton(this))
{
    Build();
    connect(OKButton, &QPushButton::clicked, this, &frmShoppingCartAmount::Confirm);
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(tbAmount, &QLineEdit::textEdited, this, [this] { SetErrorVisible(false); });
}

void frmShoppingCartAmount::Build()
{
    setObjectName(QStringLiteral("frmShoppingCartAmount"));
    lblAmount->setObjectName(QStringLiteral("lblAmount"));
    tbAmount->setObjectName(QStringLiteral("tbAmount"));
    lblError->setObjectName(QStringLiteral("lblError"));
    OKButton->setObjectName(QStringLiteral("OKButton"));
    CancelButton->setObjectName(QStringLiteral("CancelButton"));

    lblAmount->setBuddy(tbAmount);
    OKButton->setDefault(true);
    lblError->setTextFormat(Qt::PlainText);
    lblError->setWordWrap(true);
    // The hidden error keeps its place, so that the dialog does not jump when it appears.
    QSizePolicy errorPolicy = lblError->sizePolicy();
    errorPolicy.setRetainSizeWhenHidden(true);
    lblError->setSizePolicy(errorPolicy);
    lblError->hide();

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(CancelButton);
    buttons->addWidget(OKButton);

    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
    rows->addWidget(lblAmount);
    rows->addWidget(tbAmount, 0, Qt::AlignLeft);
    rows->addWidget(lblError);
    rows->addSpacing(DialogMargin / 2);
    rows->addStretch();
    rows->addLayout(buttons);

    setTabOrder(tbAmount, CancelButton);
    setTabOrder(CancelButton, OKButton);
}

void frmShoppingCartAmount::SetCaptions()
{
    setWindowTitle(getText(QStringLiteral("ucShoppingCartAmountCaption")));
    lblAmount->setText(getText(QStringLiteral("ucShoppingCartAmountLabel")));
    lblError->setText(getText(QStringLiteral("ucShoppingCartAmountErrorLabel")));
    OKButton->setText(getText(QStringLiteral("commonButtonOK")));
    CancelButton->setText(getText(QStringLiteral("commonButtonCancel")));

    tbAmount->setFixedWidth(WidthOf(tbAmount, AmountFieldCharacters));
    lblError->setMinimumWidth(
        std::min(lblError->fontMetrics().horizontalAdvance(lblError->text()) + 1,
                 WidthOf(lblError, LongestErrorLineCharacters)));
}

void frmShoppingCartAmount::showEvent(QShowEvent *event)
{
    // A spontaneous one is the window's coming back, not an opening.
    if (!event->spontaneous()) {
        action = DialogAction::Cancelled;
        SetCaptions();
        ColourError();
        SetErrorVisible(false);
        tbAmount->setText(QStringLiteral("1"));
        SelectAmount();
        isOpening = true;
        adjustSize();
    }
    QDialog::showEvent(event);
}

void frmShoppingCartAmount::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        ColourError();
    // The first activation after the opening would otherwise drop the selection again.
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isOpening) {
        isOpening = false;
        SelectAmount();
    }
    QDialog::changeEvent(event);
}

void frmShoppingCartAmount::SelectAmount()
{
    tbAmount->setFocus();
    tbAmount->selectAll();
}

void frmShoppingCartAmount::ColourError()
{
    const bool isDark = palette().color(QPalette::Window).lightness() <
                        palette().color(QPalette::WindowText).lightness();
    QPalette colours;
    colours.setColor(QPalette::WindowText, isDark ? ErrorOnDark : ErrorOnLight);
    lblError->setPalette(colours);
}

void frmShoppingCartAmount::SetErrorVisible(bool visible)
{
    lblError->setVisible(visible);
    tbAmount->setAccessibleDescription(visible ? lblError->text() : QString());
    if (visible) {
        QAccessibleEvent alert(lblError, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void frmShoppingCartAmount::Confirm()
{
    const std::optional<double> value = ReadAmount(tbAmount->text());
    if (!value) {
        SetErrorVisible(true);
        SelectAmount();
        return;
    }
    amount = ToInt16(*value);
    action = DialogAction::Confirmed;
    accept();
}

} // namespace Tesk
