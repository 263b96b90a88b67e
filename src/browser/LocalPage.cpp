#include "browser/LocalPage.h"

#include "browser/Log.h"
#include "browser/RequestGate.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineView>

namespace Tesk {
namespace {

void LogRefusal(const QUrl &url)
{
    qCWarning(gateLog, "refused: %ls", qUtf16Printable(url.toDisplayString()));
}

/// The pages are the program's own, so their questions come under its window's title.
QMessageBox::StandardButton Ask(QWebEnginePage *page, QMessageBox::Icon icon,
                                QMessageBox::StandardButtons buttons, const QString &message)
{
    QWidget *window = QWebEngineView::forPage(page)->window();
    QMessageBox box(icon, window->windowTitle(), message, buttons, window);
    box.setTextFormat(Qt::PlainText);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

LocalPage::LocalPage(QWebEngineProfile *profile, QObject *parent)
    : QWebEnginePage(profile, parent)
    , channel(PageChannel::Of(profile))
{
    connect(this, &QWebEnginePage::newWindowRequested, this, &LocalPage::OpenHere);
    connect(this, &QWebEnginePage::loadingChanged, this, &LocalPage::ReportUnasked);
}

bool LocalPage::acceptNavigationRequest(const QUrl &url, NavigationType, bool)
{
    if (RequestGate::IsLocal(url))
        return true;
    answered = url;
    // The engine asks about a mail address on a user's click only, and hands it to the desktop.
    if (url.scheme() == QLatin1String("mailto"))
        return true;
    LogRefusal(url);
    return false;
}

// Addresses of other programs that no user clicked are dropped by the engine without a question.
void LocalPage::ReportUnasked(const QWebEngineLoadingInfo &info)
{
    if (info.status() != QWebEngineLoadingInfo::LoadStoppedStatus)
        return;
    if (!RequestGate::IsLocal(info.url()) && info.url() != answered)
        LogRefusal(info.url());
    answered.clear();
}

// The program has one window: what the user wants in another one opens in place.
void LocalPage::OpenHere(QWebEngineNewWindowRequest &request)
{
    const QUrl url = request.requestedUrl();
    if (request.isUserInitiated() && RequestGate::IsLocal(url))
        QMetaObject::invokeMethod(
            this, [this, url] { load(url); }, Qt::QueuedConnection);
    else
        LogRefusal(url);
}

void LocalPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level,
                                         const QString &message, int line, const QString &source)
{
    const std::optional<PageChannel::Message> report = channel.Read(message);
    if (report && report->kind == PageChannel::Message::Kind::StatusText)
        Q_EMIT StatusTextSet(report->text);
    else if (report && report->kind == PageChannel::Message::Kind::DocumentLoaded)
        Q_EMIT DocumentLoaded(report->text);
    else if (report)
        Q_EMIT DocumentCreated(report->text);
    else if (level == ErrorMessageLevel)
        qCWarning(pageLog, "%ls:%d: %ls", qUtf16Printable(source), line, qUtf16Printable(message));
    else
        qCInfo(pageLog, "%ls:%d: %ls", qUtf16Printable(source), line, qUtf16Printable(message));
}

void LocalPage::javaScriptAlert(const QUrl &, const QString &message)
{
    Ask(this, QMessageBox::Information, QMessageBox::Ok, message);
}

bool LocalPage::javaScriptConfirm(const QUrl &, const QString &message)
{
    return Ask(this, QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel, message) ==
           QMessageBox::Ok;
}

bool LocalPage::javaScriptPrompt(const QUrl &, const QString &message, const QString &preset,
                                 QString *answer)
{
    QWidget *window = QWebEngineView::forPage(this)->window();
    bool confirmed = false;
    *answer = QInputDialog::getText(window, window->windowTitle(), message, QLineEdit::Normal,
                                    preset, &confirmed);
    return confirmed;
}

} // namespace Tesk
