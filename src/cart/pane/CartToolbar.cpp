#include "cart/pane/CartToolbar.h"

#include "cart/pane/WrapLayout.h"

#include <QPushButton>

namespace Tesk {

namespace {

constexpr int Gap = 6; // pixels

} // namespace

CartToolbar::CartToolbar(const QString &name, QWidget *parent)
    : QWidget(parent)
{
    setObjectName(name);
    new WrapLayout(Gap, this);
}

QPushButton *CartToolbar::AddButton(const QString &name, CartCommand command)
{
    auto *const button = new QPushButton(this);
    button->setObjectName(name);
    // A click must not take the focus out of the page; the keyboard has Tab, Enter and Space.
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, command] { Q_EMIT Pressed(command); });
    layout()->addWidget(button);
    return button;
}

} // namespace Tesk
