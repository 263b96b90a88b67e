#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Tesk {

/// A message as a mail program makes it of a `mailto:` address: percent codes are bytes of UTF-8.
struct Mail
{
    QString recipient;
    QString subject;
    QString body;

    static Mail Of(const QByteArray &address);
    /// The body's lines, which must all end with CR LF.
    QStringList Lines() const;
};

} // namespace Tesk
