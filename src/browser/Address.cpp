#include "browser/Address.h"

#include <QDir>
#include <QFileInfo>

namespace Tesk::Address {
namespace {

const QLatin1String FilePrefix("file://");
const QLatin1String ResourcePrefix("mk:");
const QLatin1String StoreMark("@MSITStore:");
const QLatin1String ContainerEnd("::");
const QLatin1String ContainerFileEnd(".chm::");

qsizetype FirstDelimiter(QStringView address, qsizetype from)
{
    for (qsizetype at = from; at < address.size(); ++at) {
        if (address[at] == u'?' || address[at] == u'#')
            return at;
    }
    return address.size();
}

qsizetype LengthOfExistingFolder(const QString &path)
{
    qsizetype slash = path.lastIndexOf(u'/');
    while (slash > 0 && !QFileInfo(path.left(slash)).isDir())
        slash = path.lastIndexOf(u'/', slash - 1);
    return qMax<qsizetype>(slash, 0);
}

/// Where the path ends and query or fragment begin.
qsizetype LengthOfPath(const QString &address)
{
    const qsizetype folder = LengthOfExistingFolder(address);
    qsizetype end = address.size();
    while (end > folder) {
        if (QFileInfo(address.left(end)).isFile())
            return end;
        const QStringView shorter = QStringView(address).left(end);
        end = qMax(shorter.lastIndexOf(u'?'), shorter.lastIndexOf(u'#'));
    }
    return FirstDelimiter(address, folder);
}

qsizetype LengthOfMemberPath(const QString &address)
{
    qsizetype member = address.indexOf(ContainerFileEnd, 0, Qt::CaseInsensitive);
    if (member < 0)
        member = address.indexOf(ContainerEnd);
    return FirstDelimiter(address, qMax<qsizetype>(member, 0));
}

/// `tail` is empty or begins with "?" or "#".
QUrl Compose(QLatin1String scheme, const QString &path, QStringView tail)
{
    QUrl url;
    url.setScheme(scheme);
    url.setPath(path, QUrl::DecodedMode);
    const qsizetype hash = tail.indexOf(u'#');
    const QStringView query = hash < 0 ? tail : tail.left(hash);
    if (!query.isEmpty())
        url.setQuery(query.mid(1).toString(), QUrl::TolerantMode);
    if (hash >= 0)
        url.setFragment(tail.mid(hash + 1).toString(), QUrl::TolerantMode);
    return url;
}

// A URL of query and fragment alone knows which of their characters must stay encoded.
QString Tail(const QUrl &url)
{
    QUrl tail;
    tail.setQuery(url.query(QUrl::FullyEncoded));
    tail.setFragment(url.fragment(QUrl::FullyEncoded));
    return tail.toString(QUrl::PrettyDecoded);
}

} // namespace

QUrl ToUrl(const QString &address)
{
    const QString trimmed = address.trimmed();
    if (trimmed.startsWith(FilePrefix, Qt::CaseInsensitive)) {
        QString path = trimmed.mid(FilePrefix.size());
        // A content base made of "file:///" and an absolute path has a slash too many.
        while (path.startsWith(QLatin1String("//")))
            path.remove(0, 1);
        const qsizetype end = LengthOfPath(path);
        return Compose(QLatin1String("file"), path.left(end), QStringView(path).mid(end));
    }
    if (trimmed.startsWith(ResourcePrefix, Qt::CaseInsensitive)) {
        const QString path = trimmed.mid(ResourcePrefix.size());
        const qsizetype end = LengthOfMemberPath(path);
        return Compose(QLatin1String("mk"), path.left(end), QStringView(path).mid(end));
    }
    return QUrl(trimmed, QUrl::TolerantMode);
}

QString FromUrl(const QUrl &url)
{
    if (url.isLocalFile())
        return FilePrefix + url.path(QUrl::FullyDecoded) + Tail(url);
    if (url.scheme() == QLatin1String("mk"))
        return ResourcePrefix + url.path(QUrl::FullyDecoded) + Tail(url);
    return url.toString(QUrl::PrettyDecoded);
}

QString MemberPath(const QUrl &url)
{
    QString path = url.path(QUrl::FullyDecoded);
    // The engine resolves some addresses against the whole address of the page, which leaves one
    // container's address inside another: the last one counts.
    const qsizetype store = path.lastIndexOf(StoreMark, -1, Qt::CaseInsensitive);
    if (store >= 0)
        path.remove(0, store + StoreMark.size());
    const qsizetype container = path.lastIndexOf(ContainerEnd);
    if (container >= 0)
        path.remove(0, container + ContainerEnd.size());
    path.replace(u'\\', u'/');
    path = QDir::cleanPath(u'/' + path);
    while (path == QLatin1String("/..") || path.startsWith(QLatin1String("/../")))
        path.remove(0, 3);
    return path.isEmpty() ? QStringLiteral("/") : path;
}

bool IsWhole(const QUrl &url)
{
    const QString path = url.path(QUrl::FullyDecoded);
    const qsizetype container = path.lastIndexOf(ContainerEnd);
    return path.startsWith(StoreMark, Qt::CaseInsensitive) && container >= 0 &&
           path.indexOf(u'\\', container) < 0;
}

QUrl ToWhole(const QUrl &url, const QString &containerPath)
{
    QUrl whole = url;
    whole.setPath(StoreMark + containerPath + ContainerEnd + MemberPath(url), QUrl::DecodedMode);
    return whole;
}

} // namespace Tesk::Address
