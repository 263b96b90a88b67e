#include "browser/RequestGate.h"

#include "browser/Log.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace Tesk {
namespace {

bool IsBelow(const QString &path, const QString &folder)
{
    return !folder.isEmpty() && path.startsWith(folder.endsWith(u'/') ? folder : folder + u'/');
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
    if (!url.isLocalFile())
        return IsLocal(url);
    if (!url.host().isEmpty())
        return false;
    const QString path = QDir::cleanPath(url.toLocalFile());
    if (!IsBelow(path, spelledRoot) && !IsBelow(path, canonicalRoot))
        return false;
    // A link on the disk may lead out. What does not exist passes, so that it is told as missing.
    const QString target = QFileInfo(path).canonicalFilePath();
    return target.isEmpty() || IsBelow(target, canonicalRoot);
}

void RequestGate::interceptRequest(QWebEngineUrlRequestInfo &request)
{
    if (Allows(request.requestUrl()))
        return;
    qCWarning(gateLog, "refused: %ls", qUtf16Printable(request.requestUrl().toDisplayString()));
    request.block(true);
}

} // namespace Tesk
