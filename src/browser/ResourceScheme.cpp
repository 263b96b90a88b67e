#include "browser/ResourceScheme.h"

#include "base/Errors.h"
#include "browser/Address.h"
#include "browser/ChmFile.h"
#include "browser/Log.h"

#include <QBuffer>
#include <QHash>
#include <QMimeDatabase>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <QWebEngineUrlSchemeHandler>

#include <optional>

namespace Tesk {
namespace {

const char *const SchemeName = "mk";

/// The endings that pages live on; the desktop's table of types may be edited by its user, and a
/// page must not turn into a download by that. No character set: the pages name their own.
QByteArray MimeType(const QString &member)
{
    static const QHash<QString, QByteArray> types = {
        {QStringLiteral("html"), "text/html"},      {QStringLiteral("htm"), "text/html"},
        {QStringLiteral("css"), "text/css"},        {QStringLiteral("js"), "text/javascript"},
        {QStringLiteral("txt"), "text/plain"},      {QStringLiteral("gif"), "image/gif"},
        {QStringLiteral("png"), "image/png"},       {QStringLiteral("jpg"), "image/jpeg"},
        {QStringLiteral("jpeg"), "image/jpeg"},     {QStringLiteral("svg"), "image/svg+xml"},
        {QStringLiteral("webp"), "image/webp"},     {QStringLiteral("ico"), "image/x-icon"},
        {QStringLiteral("pdf"), "application/pdf"},
    };
    const QString ending = member.mid(member.lastIndexOf(u'.') + 1).toLower();
    const auto known = types.constFind(ending);
    if (known != types.cend())
        return *known;
    return QMimeDatabase().mimeTypeForFile(member, QMimeDatabase::MatchExtension).name().toLatin1();
}

/// Answers from one container, opened once. The engine calls it on the thread of the windows.
class ResourceHandler final : public QWebEngineUrlSchemeHandler
{
public:
    ResourceHandler(const QString &path, QObject *parent)
        : QWebEngineUrlSchemeHandler(parent)
        , containerPath(path)
    {
        try {
            container.emplace(path);
        } catch (const FileError &error) {
            qCWarning(browserLog, "%ls", qUtf16Printable(error.Message()));
        }
    }

    void requestStarted(QWebEngineUrlRequestJob *job) override
    {
        if (!Address::IsWhole(job->requestUrl())) {
            job->redirect(Address::ToWhole(job->requestUrl(), containerPath));
            return;
        }
        const QString member = Address::MemberPath(job->requestUrl());
        const std::optional<QByteArray> content =
            container ? container->Read(member) : std::nullopt;
        if (!content) {
            qCWarning(browserLog, "%ls has no member %ls", qUtf16Printable(containerPath),
                      qUtf16Printable(member));
            job->fail(QWebEngineUrlRequestJob::UrlNotFound);
            return;
        }
        auto *buffer = new QBuffer;
        connect(job, &QObject::destroyed, buffer, &QObject::deleteLater);
        buffer->setData(*content);
        buffer->open(QIODevice::ReadOnly);
        job->reply(MimeType(member), buffer);
    }

private:
    QString containerPath;
    std::optional<ChmFile> container;
};

} // namespace

void ResourceScheme::Register()
{
    QWebEngineUrlScheme scheme(SchemeName);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::LocalScheme |
                    QWebEngineUrlScheme::LocalAccessAllowed);
    QWebEngineUrlScheme::registerScheme(scheme);
}

void ResourceScheme::Install(QWebEngineProfile *profile, const QString &containerPath)
{
    profile->installUrlSchemeHandler(SchemeName, new ResourceHandler(containerPath, profile));
}

} // namespace Tesk
