#include "browser/PageChannel.h"

#include "browser/PageScript.h"

#include <QUuid>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

namespace Tesk {
namespace {

const QString channelName = QStringLiteral("PageChannel");
const QLatin1String documentMark("document:");
const QLatin1String loadedMark("loaded:");
const QLatin1String statusMark("status:");

} // namespace

PageChannel &PageChannel::Of(QWebEngineProfile *profile)
{
    auto *channel = static_cast<PageChannel *>(
        profile->findChild<QObject *>(channelName, Qt::FindDirectChildrenOnly));
    return channel ? *channel : *new PageChannel(profile);
}

PageChannel::PageChannel(QWebEngineProfile *profile)
    : QObject(profile)
    , token(QUuid::createUuid().toString())
{
    setObjectName(channelName);
    QWebEngineScript script;
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::MainWorld);
    script.setRunsOnSubFrames(false);
    script.setSourceCode(Script());
    // A script of one page gets lost when the engine lets two kinds of address share a process.
    profile->scripts()->insert(script);
}

QString PageChannel::Script() const
{
    return PageScript::OnDocumentCreation(token);
}

std::optional<PageChannel::Message> PageChannel::Read(const QString &consoleMessage) const
{
    if (!consoleMessage.startsWith(token))
        return std::nullopt;
    const QString text = consoleMessage.mid(token.size());
    if (text.startsWith(statusMark))
        return Message{Message::Kind::StatusText, text.mid(statusMark.size())};
    if (text.startsWith(documentMark))
        return Message{Message::Kind::DocumentId, text.mid(documentMark.size())};
    if (text.startsWith(loadedMark))
        return Message{Message::Kind::DocumentLoaded, text.mid(loadedMark.size())};
    return std::nullopt;
}

} // namespace Tesk
