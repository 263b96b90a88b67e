#pragma once

#include "contact/ContactDialog.h"

namespace Tesk {

/// The general contact form, with lists of requested information and of how to answer.
class dlgContact final : public ContactDialog
{
    Q_OBJECT

public:
    explicit dlgContact(const ContactServices &contactServices, QWidget *owner = nullptr)
        : ContactDialog(ContactKind::Contact, contactServices, owner)
    {}
};

} // namespace Tesk
