#include "contact/ContactDialog.h"

#include "contact/ContactForm.h"
#include "contact/LastContact.h"
#include "contact/MailSender.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShowEvent>

#include <algorithm>

namespace Tesk {

namespace {

const QString MakersAddress = QStringLiteral("info@tesk-instruments.example");

// Pixels.
constexpr int Margin = 16;
constexpr int UsualOpeningWidth = 880;
constexpr QSize WindowFrame(16, 48);

} // namespace

ContactDialog::ContactDialog(ContactKind kind, const ContactServices &contactServices,
                             QWidget *owner)
    : QDialog(owner)
    , kind(kind)
    , services(contactServices)
    , area(new QScrollArea(this))
    , form(new ContactForm(kind, contactServices))
    , CancelButton(new QPushButton(this))
    , PrintButton(new QPushButton(this))
    , SendButton(new QPushButton(this))
{
    CancelButton->setObjectName(QStringLiteral("CancelButton"));
    PrintButton->setObjectName(QStringLiteral("PrintButton"));
    SendButton->setObjectName(QStringLiteral("SendButton"));
    SendButton->setDefault(true);

    form->layout()->setContentsMargins(Margin, Margin, Margin, Margin);
    area->setWidget(form);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // Its fields are the stops; the area scrolls to them by itself.
    area->setFocusPolicy(Qt::NoFocus);

    auto *const buttons = new QHBoxLayout;
    buttons->setContentsMargins(Margin, 0, Margin, 0);
    buttons->addStretch(1);
    for (QPushButton *const button : {CancelButton, PrintButton, SendButton})
        buttons->addWidget(button);

    auto *const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, Margin);
    rows->addWidget(area, 1);
    rows->addLayout(buttons);

    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(PrintButton, &QPushButton::clicked, this, &ContactDialog::Print);
    connect(SendButton, &QPushButton::clicked, this, &ContactDialog::Send);
}

void ContactDialog::InitializeGui()
{
    const auto text = [this](const char *key) { return services.getText(QLatin1String(key)); };
    setWindowTitle(services.getText(TraitsOf(kind).captionKey));
    CancelButton->setText(text("btn_cancel"));
    PrintButton->setText(text("btn_print"));
    SendButton->setText(text("btn_send"));
    form->SetCaptions();
}

void ContactDialog::reject()
{
    action = ContactAction::Cancelled;
    QDialog::reject();
}

void ContactDialog::showEvent(QShowEvent *event)
{
    // A spontaneous one is the window's coming back, not an opening.
    if (!event->spontaneous()) {
        action = ContactAction::Cancelled;
        InitializeGui();
        form->Load();
        form->FocusFirstField();
        area->verticalScrollBar()->setValue(0);
        FitToScreen();
    }
    QDialog::showEvent(event);
}

void ContactDialog::FitToScreen()
{
    const auto heightAt = [this](int width) {
        return form->layout()->hasHeightForWidth() ? form->heightForWidth(width)
                                                   : form->sizeHint().height();
    };
    // The layouts hear of the new captions by events.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    const QSize room = screen()->availableGeometry().size() - WindowFrame;
    const int aroundForm = layout()->sizeHint().height() - area->sizeHint().height();
    int width = std::max(form->sizeHint().width(), UsualOpeningWidth);
    const int height = heightAt(width) + aroundForm;
    if (height > room.height())
        width += area->verticalScrollBar()->sizeHint().width();
    resize(QSize(width, height).boundedTo(room));
}

void ContactDialog::Print()
{
    action = ContactAction::Printed;
    if (Submit(false))
        accept();
}

void ContactDialog::Send()
{
    action = ContactAction::Sent;
    if (Submit(true))
        accept();
}

bool ContactDialog::Submit(bool isSending)
{
    // Kept before they are checked: what was typed is there again after a cancelled attempt.
    form->Store();
    if (QWidget *const faulty = form->Validate()) {
        area->ensureWidgetVisible(faulty);
        faulty->setFocus();
        return false;
    }
    const QString subject = TraitsOf(kind).subject;
    const QString body = form->Body();
    if (isSending)
        services.mailSender.SendMail(MakersAddress, subject, body);
    services.lastContact = {subject, body};
    return true;
}

} // namespace Tesk
