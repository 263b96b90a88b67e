#include "sources/References.h"

#include <QDir>
#include <QRegularExpression>
#include <QUrl>

namespace Tesk {

namespace {

bool IsFileReference(const QString &address)
{
    static const QRegularExpression scheme(QStringLiteral("^([A-Za-z][A-Za-z0-9+.-]*:|//|#)"));
    return !address.isEmpty() && !scheme.match(address).hasMatch();
}

QString TargetOf(const QString &address, const QString &path)
{
    static const QRegularExpression queryOrFragment(QStringLiteral("[?#].*$"));
    const QString file = QUrl::fromPercentEncoding(QString(address)
                                                       .remove(queryOrFragment)
                                                       .replace(QLatin1Char('\\'), QLatin1Char('/'))
                                                       .toUtf8());
    if (file.startsWith(QLatin1Char('/')))
        return QDir::cleanPath(file.mid(1));
    const qsizetype folderEnd = path.lastIndexOf(QLatin1Char('/'));
    return QDir::cleanPath(path.left(folderEnd + 1) + file);
}

/// Style sheets name files in url(…) only: src="…" there is part of a selector.
QRegularExpression FormIn(const QString &path)
{
    const QString inStyle = QStringLiteral("\\burl\\(\\s*[\"']?([^\"')]*)[\"']?\\s*\\)");
    const QString inPage =
        QStringLiteral("\\b(?:src|href)\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')|") + inStyle;
    return QRegularExpression(path.endsWith(QLatin1String(".css")) ? inStyle : inPage,
                              QRegularExpression::CaseInsensitiveOption);
}

} // namespace

QList<Reference> FindReferences(const QByteArray &bytes, const QString &path)
{
    const QRegularExpression form = FormIn(path);
    const QString text = QString::fromUtf8(bytes);
    QList<Reference> references;
    auto matches = form.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QString address = match.captured(match.lastCapturedIndex()).trimmed();
        if (!IsFileReference(address))
            continue;
        const auto line = QStringView(text).left(match.capturedStart()).count(QLatin1Char('\n'));
        references.append({static_cast<int>(line) + 1, address, TargetOf(address, path)});
    }
    return references;
}

} // namespace Tesk
