#include "browser/PageChannel.h"

#include "browser/PageScript.h"

#include <QUuid>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

namespace Tesk {
namespace {

const QString ChannelName = QStringLiteral("PageChannel");
const QLatin1String DocumentMark("document:");
const QLatin1String LoadedMark("loaded:");
const QLatin1String StatusMark("status:");

} // namespace

PageChannel &PageChannel::Of(QWebEngineProfile *profile)
{
    auto *channel = static_cast<PageChannel *>(
        profile->findChild<QObject *>(ChannelName, Qt::FindDirectChildrenOnly));
    return channel ? *channel : *new PageChannel(profile);
}

PageChannel::PageChannel(QWebEngineProfile *profile)
    : QObject(profile)
    , token(QUuid::createUuid().toString())
{
    setObjectName(ChannelName);
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
    if (text.startsWith(StatusMark))
        return Message{Message::Kind::StatusText, text.mid(StatusMark.size())};
    if (text.startsWith(DocumentMark))
        return Message{Message::Kind::DocumentId, text.mid(DocumentMark.size())};
    if (text.startsWith(LoadedMark))
        return Message{Message::Kind::DocumentLoaded, text.mid(LoadedMark.size())};
    return std::nullopt;
}

} // namespace Tesk
