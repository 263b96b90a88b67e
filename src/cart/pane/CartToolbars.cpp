#include "cart/pane/CartToolbars.h"

#include "cart/pane/CartToolbar.h"

#include <QBoxLayout>
#include <QKeySequence>
#include <QPushButton>

namespace Tesk {

namespace {

// Pixels.
constexpr int SideMargin = 24;
constexpr int TopMargin = 18;
constexpr int BottomMargin = 2;
constexpr int GapBetweenToolbars = 18;
constexpr int GapBetweenLines = 6;

/// The buttons stand above a page that is white in every desktop scheme.
const QString Style = QStringLiteral(
    "Tesk--CartToolbars { background: white; }"
    "QPushButton { border: 1px solid rgb(201, 205, 208); border-radius: 3px; padding: 6px 12px;"
    " outline: none;"
    " background: white; color: rgb(31, 35, 38); }"
    "QPushButton:hover { background: rgb(236, 237, 237); }"
    "QPushButton:focus { border-color: rgb(31, 35, 38); }"
    "QPushButton:pressed { background: rgb(227, 230, 232); }"
    "QPushButton:disabled { border-color: rgb(227, 230, 232); color: rgb(154, 160, 165); }"
    "QPushButton#btnSendOrder:enabled { border-color: rgb(219, 39, 28);"
    " background: rgb(219, 39, 28); color: white; }"
    "QPushButton#btnSendOrder:enabled:hover { background: rgb(196, 32, 22); }"
    "QPushButton#btnSendOrder:enabled:focus { border-color: rgb(31, 35, 38); }");

/// The caption in full and the key that presses the button.
QString ToolTip(const QString &caption)
{
    const QString key = QKeySequence::mnemonic(caption).toString(QKeySequence::NativeText);
    const QString text = QString(caption).remove(u'&');
    return key.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, key);
}

} // namespace

CartToolbars::CartToolbars(QWidget *parent)
    : QWidget(parent)
    , row(new QBoxLayout(QBoxLayout::LeftToRight, this))
    , tbFunctions(new CartToolbar(QStringLiteral("tbFunctions"), this))
    , tbFunctionsExt(new CartToolbar(QStringLiteral("tbFunctionsExt"), this))
{
    setStyleSheet(Style);
    setAttribute(Qt::WA_StyledBackground);
    row->setContentsMargins(SideMargin, TopMargin, SideMargin, BottomMargin);
    row->addWidget(tbFunctions);
    row->addWidget(tbFunctionsExt);

    Add(tbFunctions, "btnSave", CartCommand::Save, "mShoppingCartSave", true);
    Add(tbFunctions, "btnLoad", CartCommand::Load, "mShoppingCartLoad", false);
    Add(tbFunctions, "btnManual", CartCommand::ManualAdd, "mShoppingCartAdd", false);
    Add(tbFunctions, "btnPrint", CartCommand::Print, "mShoppingCartPrint", true);
    Add(tbFunctionsExt, "btnSendRequest", CartCommand::SendRequest, "mShoppingCartSendRequest",
        true);
    Add(tbFunctionsExt, "btnSendOrder", CartCommand::SendOrder, "mShoppingCartSendOrder", true);
    Add(tbFunctionsExt, "btnDelete", CartCommand::Delete, "mShoppingCartDelete", true);
    for (const CartToolbar *const toolbar : {tbFunctions, tbFunctionsExt})
        connect(toolbar, &CartToolbar::Pressed, this, &CartToolbars::Pressed);
    SetCartFilled(false);
}

void CartToolbars::Add(CartToolbar *toolbar, const char *name, CartCommand command,
                       const char *captionKey, bool needsItems)
{
    buttons.push_back({toolbar->AddButton(QLatin1String(name), command), captionKey, needsItems});
}

void CartToolbars::SetCaptions(const std::function<QString(const QString &key)> &getText)
{
    for (const Button &button : buttons) {
        const QString caption = getText(QLatin1String(button.captionKey));
        button.control->setText(caption);
        button.control->setToolTip(ToolTip(caption));
    }
    Arrange();
}

void CartToolbars::SetCartFilled(bool isFilled)
{
    for (const Button &button : buttons)
        button.control->setEnabled(isFilled || !button.needsItems);
}

void CartToolbars::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Arrange();
}

void CartToolbars::Arrange()
{
    const int needed =
        tbFunctions->sizeHint().width() + GapBetweenToolbars + tbFunctionsExt->sizeHint().width();
    const bool isWide = contentsRect().width() - 2 * SideMargin >= needed;
    row->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    row->setSpacing(isWide ? GapBetweenToolbars : GapBetweenLines);
    // Where there is room, what goes out of the house stands at the right.
    row->setStretchFactor(tbFunctions, isWide ? 1 : 0);
}

} // namespace Tesk
