#pragma once

#include "cart/pane/CartCommand.h"

#include <QWidget>

#include <functional>
#include <vector>

class QBoxLayout;
class QPushButton;

namespace Tesk {

class CartToolbar;

/// The pane's two toolbars, side by side or, where that is too narrow, one above the other.
class CartToolbars final : public QWidget
{
    Q_OBJECT

public:
    explicit CartToolbars(QWidget *parent = nullptr);

    /// Captions and tool tips; `getText` gives the text of a key in the current language.
    void SetCaptions(const std::function<QString(const QString &key)> &getText);
    /// Enables the commands that need a filled cart, or disables them.
    void SetCartFilled(bool isFilled);

Q_SIGNALS:
    void Pressed(Tesk::CartCommand command);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Button
    {
        QPushButton *control;
        const char *captionKey;
        bool needsItems;
    };

    void Add(CartToolbar *toolbar, const char *name, CartCommand command, const char *captionKey,
             bool needsItems);
    void Arrange();

    QBoxLayout *row;
    CartToolbar *tbFunctions;
    CartToolbar *tbFunctionsExt;
    std::vector<Button> buttons;
};

} // namespace Tesk
