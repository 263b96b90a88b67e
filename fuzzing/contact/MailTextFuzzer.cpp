#include "base/CodePage.h"
#include "contact/MailSender.h"
#include "support/Require.h"

#include <QByteArrayList>
#include <QString>

#include <cstdint>

using namespace Tesk;
using Fuzzing::Require;

namespace {

/// The bytes that a text with "%XX" in it stands for.
QByteArray Decoded(const QByteArray &encoded)
{
    return QByteArray::fromPercentEncoding(encoded);
}

void RequireEncoded(const QString &encoded)
{
    const QString hexadecimal = QStringLiteral("0123456789ABCDEF");
    for (qsizetype i = 0; i < encoded.size(); ++i) {
        const char16_t c = encoded[i].unicode();
        if (c == u'%') {
            Require(i + 2 < encoded.size() && hexadecimal.contains(encoded[i + 1]) &&
                        hexadecimal.contains(encoded[i + 2]),
                    "two upper-case digits follow a per cent sign");
            i += 2;
            continue;
        }
        Require(c == u' ' || (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') ||
                    (c >= u'a' && c <= u'z'),
                "only blanks, letters and digits stay");
    }
}

} // namespace

/// Sends the input, taken for UTF-8, as a subject and as a body.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QByteArray codes = CodePage::ToBytes(text);
    const QString encoded = MailSender::EncodeMailText(text);
    RequireEncoded(encoded);
    Require(Decoded(encoded.toLatin1()) == codes, "an encoded text is decoded to itself");

    QByteArray opened;
    const MailSender sender([&opened](const QByteArray &address) {
        opened = address;
        return true;
    });
    sender.SendMail(QStringLiteral("info@maker.example"), text, text);
    for (const char c : opened)
        Require(c > ' ' && c < '\x7f', "an address is printable ASCII");
    const QByteArray start = "mailto:info@maker.example?subject=";
    Require(opened.startsWith(start), "the recipient comes first");
    const QByteArrayList parts = opened.mid(start.size()).split('&');
    Require(parts.size() == 2 && parts[1].startsWith("body="), "the text adds no part of its own");
    const QByteArray utf8 = CodePage::FromBytes(codes).toUtf8();
    Require(Decoded(parts[0]) == utf8 && Decoded(parts[1].mid(5)) == utf8,
            "the mail program is told the text");
    return 0;
}
