#pragma once

#include "contact/ContactDialog.h"

namespace Tesk {

/// The form that goes with a request.
class dlgContactRequest final : public ContactDialog
{
    Q_OBJECT

public:
    explicit dlgContactRequest(const ContactServices &contactServices, QWidget *owner = nullptr)
        : ContactDialog(ContactKind::Request, contactServices, owner)
    {}
};

} // namespace Tesk
