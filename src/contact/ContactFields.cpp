#include "contact/ContactFields.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace Tesk {

namespace {

constexpr unsigned Contact = static_cast<unsigned>(ContactKind::Contact);
constexpr unsigned Request = static_cast<unsigned>(ContactKind::Request);
constexpr unsigned Order = static_cast<unsigned>(ContactKind::Order);
constexpr unsigned All = Contact | Request | Order;

constexpr bool Mandatory = true;
constexpr bool Optional = false;

constexpr QLatin1String NotStored;
constexpr QLatin1String NoLabel;

constexpr QLatin1String operator""_latin1(const char *text, size_t size)
{
    return {text, static_cast<qsizetype>(size)};
}

// clang-format off
constexpr std::array Fields{
    ContactField{"InstName"_latin1, "ucContactInstName"_latin1, "CustomerInstName"_latin1, Mandatory, "Name der Institution: "_latin1, All},
    ContactField{"CustomerId"_latin1, "ucContactCustomerId"_latin1, "CustomerId"_latin1, Optional, "Kundennummer: "_latin1, Contact | Order},
    ContactField{"Street"_latin1, "ucContactStreet"_latin1, "Street"_latin1, Mandatory, "Strasse: "_latin1, All},
    ContactField{"PostalCodeCity"_latin1, "ucContactPostalCodeCity"_latin1, "PostalCodeCity"_latin1, Mandatory, "PLZ / Stadt: "_latin1, All},
    ContactField{"Country"_latin1, "ucContactCountry"_latin1, "Country"_latin1, Mandatory, "Land: "_latin1, All},
    ContactField{"Phone"_latin1, "ucContactPhone"_latin1, "Phone"_latin1, Mandatory, "Telefon: "_latin1, All},
    ContactField{"Fax"_latin1, "ucContactFax"_latin1, "Fax"_latin1, Optional, "Fax: "_latin1, All},
    ContactField{"Mobile"_latin1, "ucContactMobile"_latin1, "Mobile"_latin1, Optional, "Mobil: "_latin1, All},
    ContactField{"Email"_latin1, "ucContactEmail"_latin1, "Email"_latin1, Optional, "Email: "_latin1, All},
    ContactField{"Url"_latin1, "ucContactUrl"_latin1, "Url"_latin1, Optional, "Web: "_latin1, Contact | Request},
    ContactField{"PersonName"_latin1, "ucContactPersonName"_latin1, "Name"_latin1, Mandatory, NoLabel, All},
    ContactField{"PON"_latin1, "ucContactCaption_PON"_latin1, NotStored, Optional, "Nummer der Bestellung: "_latin1, Order},
};
// clang-format on

} // namespace

ContactTraits TraitsOf(ContactKind kind)
{
    switch (kind) {
    case ContactKind::Contact:
        return {"ucContactCaption_Contact"_latin1, "Kontakt"_latin1, true, false};
    case ContactKind::Request:
        return {"ucContactCaption_Request"_latin1, "Anfrage"_latin1, false, true};
    case ContactKind::Order:
        break;
    }
    return {"ucContactCaption_Order"_latin1, "Bestellung"_latin1, false, true};
}

std::vector<ContactField> FieldsOf(ContactKind kind)
{
    std::vector<ContactField> fields;
    std::copy_if(Fields.begin(), Fields.end(), std::back_inserter(fields),
                 [kind](const ContactField &field) {
                     return (field.kinds & static_cast<unsigned>(kind)) != 0;
                 });
    return fields;
}

} // namespace Tesk
