#include "browser/LocalPage.h"

#include "browser/Log.h"
#include "browser/PageScript.h"
#include "browser/RequestGate.h"

#include <QUuid>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

namespace Tesk {
namespace {

const QLatin1String documentMark("document:");
const QLatin1String statusMark("status:");

} // namespace

LocalPage::LocalPage(QWebEngineProfile *profile, QObject *parent)
    : QWebEnginePage(profile, parent)
    , token(QUuid::createUuid().toString())
{
    InjectScript();
}

void LocalPage::InjectScript()
{
    QWebEngineScript script;
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::MainWorld);
    script.setRunsOnSubFrames(false);
    script.setSourceCode(PageScript::OnDocumentCreation(token));
    scripts().insert(script);
}

bool LocalPage::acceptNavigationRequest(const QUrl &url, NavigationType, bool)
{
    // The engine hands mail addresses to the desktop, and only on a user's click.
    if (RequestGate::IsLocal(url) || url.scheme() == QLatin1String("mailto"))
        return true;
    qCWarning(gateLog, "refused: %ls", qUtf16Printable(url.toDisplayString()));
    return false;
}

void LocalPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level,
                                         const QString &message, int line, const QString &source)
{
    if (!message.startsWith(token)) {
        if (level == ErrorMessageLevel)
            qCWarning(pageLog, "%ls:%d: %ls", qUtf16Printable(source), line,
                      qUtf16Printable(message));
        else
            qCInfo(pageLog, "%ls:%d: %ls", qUtf16Printable(source), line, qUtf16Printable(message));
        return;
    }
    const QString text = message.mid(token.size());
    if (text.startsWith(statusMark))
        Q_EMIT StatusTextSet(text.mid(statusMark.size()));
    else if (text.startsWith(documentMark))
        Q_EMIT DocumentCreated(text.mid(documentMark.size()));
}

} // namespace Tesk
