#pragma once

#include "browser/DialogLimit.h"

#include <QObject>
#include <QString>

class QWidget;

namespace Tesk {

class Controller;

/// A catalogue page's request to put a product into the cart, which it makes by its status text.
class CartRequest final : public QObject
{
    Q_OBJECT

public:
    /// `owner` is the window that the dialogs belong to.
    CartRequest(Controller &controller, QWidget *owner);

public Q_SLOTS:
    /// Acts on a text that asks for a product (CartRequestText.h) and differs from the last such
    /// text. Texts that arrive while the dialog is open are dropped, and those that would open
    /// dialog after dialog (DialogLimit.h).
    void StatusTextChange(const QString &text);

Q_SIGNALS:
    void Added();

private:
    void AskAndAdd(const QString &id);

    Controller &controller;
    QWidget *owner;
    QString lastStatusText;
    DialogLimit dialogs;
    bool isDialogOpen = false;
};

} // namespace Tesk
