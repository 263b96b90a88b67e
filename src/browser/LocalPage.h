#pragma once

#include "browser/Departure.h"
#include "browser/DialogLimit.h"
#include "browser/PageChannel.h"

#include <QUrl>
#include <QWebEnginePage>

class QWebEngineLoadingInfo;
class QWebEngineNewWindowRequest;
class QWebEngineView;

namespace Tesk {

/// The engine's page with our manners. Its signals come from within callbacks of the engine.
class LocalPage final : public QWebEnginePage
{
    Q_OBJECT

public:
    /// Belongs to the view that will show it.
    LocalPage(QWebEngineProfile *profile, QWebEngineView &view);

    /// Loads what the program asks for; the page that is shown cannot keep it from coming.
    void Open(const QUrl &url);

    /// The load that was begun last has ended without a page. What is to be opened again because
    /// the page that is shown has ended its load, empty for nothing.
    QUrl TakeUp() { return departure.TakeUp(); }

    /// While it is held, it opens no other page and tells what it would have opened.
    void SetHeld(bool isToBeHeld) { isHeld = isToBeHeld; }

Q_SIGNALS:
    /// A document came into being in the main frame; `id` names it among all others.
    void DocumentCreated(const QString &id);
    void DocumentLoaded(const QString &id);
    void StatusTextSet(const QString &text);
    void NavigationHeld(const QUrl &url);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message,
                                  int line, const QString &source) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList &oldFiles,
                            const QStringList &acceptedTypes) override;
    void javaScriptAlert(const QUrl &origin, const QString &message) override;
    bool javaScriptConfirm(const QUrl &origin, const QString &message) override;
    bool javaScriptPrompt(const QUrl &origin, const QString &message, const QString &preset,
                          QString *answer) override;

private:
    bool MayAsk(const QString &message);
    void OpenHere(QWebEngineNewWindowRequest &request);
    void ReportUnasked(const QWebEngineLoadingInfo &info);
    void FollowDeparture(const QWebEngineLoadingInfo &info);
    QUrl ShownUrl() const;

    PageChannel &channel;
    /// The last address of another program that the engine asked about.
    QUrl answered;
    Departure departure;
    DialogLimit questions;
    bool isHeld = false;
};

} // namespace Tesk
