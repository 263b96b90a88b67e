#pragma once

#include "contact/ContactDialog.h"

namespace Tesk {

/// The form that goes with an order: customer number and order number.
class dlgContactOrder final : public ContactDialog
{
    Q_OBJECT

public:
    explicit dlgContactOrder(const ContactServices &contactServices, QWidget *owner = nullptr)
        : ContactDialog(ContactKind::Order, contactServices, owner)
    {}
};

} // namespace Tesk
