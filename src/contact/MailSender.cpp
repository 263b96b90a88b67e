#include "contact/MailSender.h"

#include "base/CodePage.h"

#include <QLoggingCategory>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#include <shellapi.h>
#else
#include <QProcess>

#include <unistd.h>
#endif

#include <limits>
#include <utility>

namespace Tesk {

namespace {

Q_LOGGING_CATEGORY(mailLog, "tesk.mail")

// What a line of the log shows of an address: enough to tell which, none of the customer's data.
constexpr QChar EndOfRecipient = u'?';

const QString Advice =
    QStringLiteral("- install a mail program and make it the system's program for mail addresses.");
const QString LengthAdvice =
    QStringLiteral("- the message of %1 bytes is longer than the system hands to a program. "
                   "Shorten the remarks, or print it.");

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

constexpr qsizetype LongestAddress = std::numeric_limits<qsizetype>::max(); // not known

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

const QString SystemsOpener = QStringLiteral("xdg-open");
/// What Linux hands to a program as one argument.
constexpr qsizetype LongestAddress = 128 * 1024 - 1; // bytes

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

/// Writes to the log how the opener ended; it may stay as long as the mail program is open.
void TellOfEnd(const QProcess &opener, const QString &recipient)
{
    if (opener.exitStatus() == QProcess::NormalExit && opener.exitCode() == 0)
        return;
    qCWarning(mailLog).noquote() << SystemsOpener << "ended with status" << opener.exitCode()
                                 << "on the message to" << recipient << Advice;
}

bool OpenBySystem(const QByteArray &address)
{
    // The desktop's own opener passes the address on as it is. What it prints would bring the
    // customer's data to the terminal.
    const QString text = QString::fromLatin1(address);
    auto *const opener = new QProcess;
    opener->setProgram(SystemsOpener);
    opener->setArguments({text});
    opener->setStandardInputFile(QProcess::nullDevice());
    opener->setStandardOutputFile(QProcess::nullDevice());
    opener->setStandardErrorFile(QProcess::nullDevice());
    // Neither the end of this program nor a key at its terminal ends the mail program.
    opener->setChildProcessModifier([] { ::setsid(); });
    QObject::connect(opener, &QProcess::finished, opener,
                     [opener, recipient = text.section(EndOfRecipient, 0, 0)] {
                         TellOfEnd(*opener, recipient);
                         opener->deleteLater();
                     });
    opener->start();
    if (opener->waitForStarted())
        return true;
    delete opener;
    return false;
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
    const QByteArray outgoing = OutgoingAddress(address);
    if (opener(outgoing))
        return;
    qCWarning(mailLog).noquote() << "No program opened" << address.section(EndOfRecipient, 0, 0)
                                 << (outgoing.size() > LongestAddress
                                         ? LengthAdvice.arg(outgoing.size())
                                         : Advice);
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
