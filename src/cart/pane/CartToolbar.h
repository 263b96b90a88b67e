#pragma once

#include "cart/pane/CartCommand.h"

#include <QWidget>

class QPushButton;

namespace Tesk {

/// One group of the pane's buttons. It breaks into lines where it is narrow; no button is hidden.
/// A click takes the focus of no other control, and the keyboard reaches the buttons by Tab.
class CartToolbar final : public QWidget
{
    Q_OBJECT

public:
    explicit CartToolbar(const QString &name, QWidget *parent = nullptr);

    QPushButton *AddButton(const QString &name, CartCommand command);

Q_SIGNALS:
    void Pressed(Tesk::CartCommand command);
};

} // namespace Tesk
