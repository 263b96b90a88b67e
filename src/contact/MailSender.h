#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace Tesk {

/// Hands messages to the user's mail program, as `mailto:` addresses that the system opens. That
/// none opened is not reported to the user; it leaves a line in the logging category "tesk.mail",
/// at once or when the system's opener ends.
class MailSender final
{
public:
    /// Opens an address with the program that the system has for it; false when it could not.
    using Opener = std::function<bool(const QByteArray &address)>;

    /// The system's own way of opening an address.
    static Opener SystemOpener();

    explicit MailSender(Opener addressOpener = SystemOpener());

    /// The recipient stands in the address as it is; subject and body are encoded.
    void SendMail(const QString &recipient, const QString &subject, const QString &body) const;

    /// Opens an address as SendMail composes it. On Windows it leaves as it is. Elsewhere mail
    /// programs read UTF-8 in it and take no blanks: there each code above 7F is exchanged for its
    /// character's UTF-8 bytes and each blank for %20.
    void OpenDocument(const QString &address) const;

    /// Blanks, the letters A to Z and a to z and the digits stay; every other character becomes "%"
    /// and its code in the code page, two upper-case hexadecimal digits ("ü" is %FC).
    static QString EncodeMailText(const QString &text);

private:
    Opener opener;
};

} // namespace Tesk
