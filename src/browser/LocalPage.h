#pragma once

#include <QWebEnginePage>

namespace Tesk {

/// The engine's page with our manners. Its signals come from within callbacks of the engine.
class LocalPage final : public QWebEnginePage
{
    Q_OBJECT

public:
    LocalPage(QWebEngineProfile *profile, QObject *parent);

Q_SIGNALS:
    /// A document came into being in the main frame; `id` names it among all others.
    void DocumentCreated(const QString &id);
    void StatusTextSet(const QString &text);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message,
                                  int line, const QString &source) override;

private:
    void InjectScript();

    /// Marks the console messages of our own script; no page can know it.
    QString token;
};

} // namespace Tesk
