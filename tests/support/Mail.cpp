#include "support/Mail.h"

namespace Tesk {

namespace {

QString Decoded(const QByteArray &text)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(text));
}

} // namespace

Mail Mail::Of(const QByteArray &address)
{
    const QByteArray scheme = "mailto:";
    if (!address.startsWith(scheme))
        return {};
    const qsizetype question = address.indexOf('?');
    Mail mail;
    mail.recipient = Decoded(address.mid(scheme.size(), question - scheme.size()));
    const QList<QByteArray> headers = address.mid(question + 1).split('&');
    for (const QByteArray &header : headers) {
        const qsizetype equals = header.indexOf('=');
        const QString value = Decoded(header.mid(equals + 1));
        if (header.left(equals) == "subject")
            mail.subject = value;
        else if (header.left(equals) == "body")
            mail.body = value;
    }
    return mail;
}

QStringList Mail::Lines() const
{
    const QString lineEnd = QStringLiteral("\r\n");
    QStringList lines = body.split(lineEnd);
    if (lines.takeLast().isEmpty() && !QString(body).remove(lineEnd).contains(u'\n'))
        return lines;
    return {QStringLiteral("a line does not end with CR LF")};
}

} // namespace Tesk
