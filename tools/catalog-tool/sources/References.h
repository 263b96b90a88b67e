#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace Tesk {

/// A file that a page or a style sheet refers to.
struct Reference
{
    int line = 0;
    QString text;   ///< as it is written
    QString target; ///< path from the root that both files stand under, without a leading '/'
};

/// The files that `bytes` names in src="…", href="…" and url(…), as seen from the file at `path`.
/// Addresses with a scheme, of scripts and of places on the same page are left out.
QList<Reference> FindReferences(const QByteArray &bytes, const QString &path);

} // namespace Tesk
