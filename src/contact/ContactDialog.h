#pragma once

#include "contact/ContactAction.h"
#include "contact/ContactFields.h"
#include "contact/ContactServices.h"

#include <QDialog>

class QPushButton;
class QScrollArea;

namespace Tesk {

class ContactForm;

/// What the three contact dialogs have in common: the customer's data, sent to the maker as a
/// message of the user's mail program or handed back for printing. Each opening starts afresh with
/// the data that is kept and the current language's texts.
class ContactDialog : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(qint32 Action READ Action)

public:
    /// One of the values of ContactAction. Escape and the window's close box cancel.
    qint32 Action() const { return action; }

    /// Sets all captions and starts the list of institutions anew. Each opening does it itself.
    void InitializeGui();

    void reject() override;

protected:
    ContactDialog(ContactKind kind, const ContactServices &contactServices, QWidget *owner);

    void showEvent(QShowEvent *event) override;

private:
    void Print();
    void Send();
    bool Submit(bool isSending);
    void FitToScreen();

    ContactKind kind;
    ContactServices services;
    QScrollArea *area;
    ContactForm *form;
    QPushButton *CancelButton;
    QPushButton *PrintButton;
    QPushButton *SendButton;
    qint32 action = ContactAction::Cancelled;
};

} // namespace Tesk
