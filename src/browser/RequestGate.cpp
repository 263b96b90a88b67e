#include "browser/RequestGate.h"

#include "browser/Log.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>

namespace Tesk {
namespace {

bool IsBelow(const QString &path, const QString &folder)
{
    return !folder.isEmpty() && path.startsWith(folder.endsWith(u'/') ? folder : folder + u'/');
}

/// The system ends a name at a zero, and bytes that are no text may be any other name: the name
/// that was checked would not be the one that is opened.
bool IsAmbiguous(const QString &path)
{
    return path.contains(QChar::Null) || path.contains(QChar::ReplacementCharacter);
}

/// The path with what looks encoded in it decoded once more.
QString DecodedAgain(const QString &path)
{
    static const QRegularExpression octet(QStringLiteral("%([0-9A-Fa-f]{2})"));
    QByteArray bytes;
    qsizetype end = 0;
    for (auto found = octet.globalMatch(path); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        bytes += path.mid(end, match.capturedStart() - end).toUtf8();
        bytes += QByteArray::fromHex(match.captured(1).toLatin1());
        end = match.capturedEnd();
    }
    return QString::fromUtf8(bytes + path.mid(end).toUtf8());
}

/// The PDF viewer is a part of the engine and brings its own pages.
bool IsPdfViewer(const QUrl &url)
{
    if (url.scheme() == QLatin1String("chrome-extension"))
        return url.host() == QLatin1String("mhjfbmdgcfjbbpaeojofohoefgiehjai");
    return url.scheme() == QLatin1String("chrome") && url.host() == QLatin1String("resources");
}

} // namespace

RequestGate::RequestGate(const QString &allowedDirectory, QObject *parent)
    : QWebEngineUrlRequestInterceptor(parent)
    , spelledRoot(QDir::cleanPath(QDir::fromNativeSeparators(allowedDirectory)))
    , canonicalRoot(QFileInfo(allowedDirectory).canonicalFilePath())
{}

bool RequestGate::IsLocal(const QUrl &url)
{
    static const QStringList schemes = {QStringLiteral("file"), QStringLiteral("mk"),
                                        QStringLiteral("data"), QStringLiteral("blob"),
                                        QStringLiteral("about")};
    return schemes.contains(url.scheme()) || IsPdfViewer(url);
}

bool RequestGate::Allows(const QUrl &url) const
{
    if (!url.isValid())
        return false;
    if (!url.isLocalFile())
        return IsLocal(url);
    // Neither a file of another machine nor one whose folder another address would have to tell.
    if (!url.toEncoded().startsWith("file:///"))
        return false;
    const QString path = url.toLocalFile();
    if (!MayRead(path))
        return false;
    // An address with a percent sign that encodes nothing comes with all of its signs encoded.
    const QString direct = QDir::cleanPath(path);
    const QString &root = IsBelow(direct, spelledRoot) ? spelledRoot : canonicalRoot;
    return MayRead(root + DecodedAgain(direct.mid(root.size())));
}

// A link on the disk may lead out. What does not exist passes, so that it is told as missing.
bool RequestGate::MayRead(const QString &path) const
{
    const QString direct = QDir::cleanPath(path);
    if (IsAmbiguous(path) || (!IsBelow(direct, spelledRoot) && !IsBelow(direct, canonicalRoot)))
        return false;
    // The disk takes a step back from where a link has led.
    return std::ranges::all_of(std::array{direct, path}, [this](const QString &spelling) {
        const QString target = QFileInfo(spelling).canonicalFilePath();
        return target.isEmpty() || IsBelow(target, canonicalRoot);
    });
}

void RequestGate::interceptRequest(QWebEngineUrlRequestInfo &request)
{
    if (Allows(request.requestUrl()))
        return;
    qCWarning(gateLog, "refused: %ls", qUtf16Printable(request.requestUrl().toDisplayString()));
    request.block(true);
}

} // namespace Tesk
