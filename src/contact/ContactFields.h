#pragma once

#include <QLatin1String>
#include <QString>

#include <vector>

namespace Tesk {

/// The three dialogs. The values are flags: a field can stand in several of them.
enum class ContactKind : unsigned { Contact = 1, Request = 2, Order = 4 };

/// In what one dialog differs from the others, fields apart.
struct ContactTraits
{
    QLatin1String captionKey;
    /// German in every language: the maker reads it.
    QLatin1String subject;
    /// The two lists of check boxes: requested information and ways of answering.
    bool hasLists;
    /// The hint about the articles of the shopping cart.
    bool hasHint;
};

/// A field of one line of text.
struct ContactField
{
    /// The text box's name; its label's is the same with "Label" behind it.
    QLatin1String name;
    QLatin1String captionKey;
    /// The value's name in the settings; empty: the text is not kept.
    QLatin1String storedAs;
    bool isMandatory;
    /// What stands before the text in the mail. German in every language. Empty for the person's
    /// name, which stands behind the title.
    QLatin1String mailLabel;
    /// The ContactKinds whose dialogs show the field, flags joined by "or".
    unsigned kinds;
};

ContactTraits TraitsOf(ContactKind kind);

/// The fields of the dialog, in the order of the form and of the mail.
std::vector<ContactField> FieldsOf(ContactKind kind);

} // namespace Tesk
