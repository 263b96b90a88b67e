#pragma once

#include <QString>

#include <functional>

namespace Tesk {

class MailSender;
class Registry;
struct LastContact;

/// What the contact dialogs work with. All of it outlives them.
struct ContactServices
{
    /// The text of a key in the current language.
    std::function<QString(const QString &key)> getText;
    /// Keeps the customer's data between the runs of the program.
    Registry &settings;
    const MailSender &mailSender;
    /// Takes the subject and body of the dialog that is sent or printed.
    LastContact &lastContact;
};

} // namespace Tesk
