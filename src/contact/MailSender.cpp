#include "contact/MailSender.h"

#include "base/CodePage.h"

#include <QLoggingCategory>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#include <shellapi.h>
#else
#include <QProcess>
#endif

#include <utility>

namespace Tesk {

namespace {

Q_LOGGING_CATEGORY(mailLog, "tesk.mail")

// What a line of the log shows of an address: enough to tell which, none of the customer's data.
constexpr QChar EndOfRecipient = u'?';

bool IsKept(char character)
{
    return character == ' ' || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9');
}

/// "%" and two upper-case hexadecimal digits.
QByteArray Encoded(char byte)
{
    return '%' + QByteArray(1, byte).toHex().toUpper();
}

#ifdef Q_OS_WIN

QByteArray OutgoingAddress(const QString &address)
{
    return CodePage::ToBytes(address);
}

bool OpenBySystem(const QByteArray &address)
{
    constexpr INT_PTR LastErrorCode = 32;
    const HINSTANCE result =
        ShellExecuteA(nullptr, "open", address.constData(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > LastErrorCode;
}

#else

bool IsHexadecimal(char digit)
{
    return (digit >= '0' && digit <= '9') || (digit >= 'A' && digit <= 'F') ||
           (digit >= 'a' && digit <= 'f');
}

/// The byte that "%XX" at `position` stands for; empty when there are no two hexadecimal digits.
QByteArray EncodedByteAt(const QByteArray &address, qsizetype position)
{
    const QByteArray digits = address.mid(position + 1, 2);
    const bool isCode = digits.size() == 2 && IsHexadecimal(digits[0]) && IsHexadecimal(digits[1]);
    return isCode ? QByteArray::fromHex(digits) : QByteArray();
}

QByteArray OutgoingAddress(const QString &address)
{
    const QByteArray bytes = address.toUtf8();
    QByteArray outgoing;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const char byte = bytes[i];
        const QByteArray code = byte == '%' ? EncodedByteAt(bytes, i) : QByteArray();
        if (!code.isEmpty()) {
            for (const char part : CodePage::FromBytes(code).toUtf8())
                outgoing += Encoded(part);
            i += 2;
        } else if (byte > ' ' && byte < '\x7f' && byte != '%') {
            outgoing += byte;
        } else {
            outgoing += Encoded(byte);
        }
    }
    return outgoing;
}

bool OpenBySystem(const QByteArray &address)
{
    // The desktop's own opener passes the address on as it is. What it prints would bring the
    // customer's data to the terminal.
    QProcess opener;
    opener.setProgram(QStringLiteral("xdg-open"));
    opener.setArguments({QString::fromLatin1(address)});
    opener.setStandardOutputFile(QProcess::nullDevice());
    opener.setStandardErrorFile(QProcess::nullDevice());
    return opener.startDetached();
}

#endif

} // namespace

MailSender::Opener MailSender::SystemOpener()
{
    return OpenBySystem;
}

MailSender::MailSender(Opener addressOpener)
    : opener(std::move(addressOpener))
{}

void MailSender::SendMail(const QString &recipient, const QString &subject,
                          const QString &body) const
{
    OpenDocument(QLatin1String("mailto:") + recipient + QLatin1String("?subject=") +
                 EncodeMailText(subject) + QLatin1String("&body=") + EncodeMailText(body));
}

void MailSender::OpenDocument(const QString &address) const
{
    if (!opener(OutgoingAddress(address)))
        qCWarning(mailLog).noquote()
            << "No program opened" << address.section(EndOfRecipient, 0, 0)
            << "- install a mail program and make it the system's program for mail addresses.";
}

QString MailSender::EncodeMailText(const QString &text)
{
    QByteArray encoded;
    for (const char character : CodePage::ToBytes(text)) {
        if (IsKept(character))
            encoded += character;
        else
            encoded += Encoded(character);
    }
    return QString::fromLatin1(encoded);
}

} // namespace Tesk
