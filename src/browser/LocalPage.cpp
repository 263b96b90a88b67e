#include "browser/LocalPage.h"

#include "browser/Log.h"
#include "browser/PagePermissions.h"
#include "browser/RequestGate.h"
#include "widgets/PlainMessageBox.h"

#include <QCoreApplication>
#include <QInputDialog>
#include <QScopeGuard>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineView>

#include <algorithm>
#include <array>

namespace Tesk {
namespace {

void LogRefusal(const QUrl &url)
{
    qCWarning(gateLog, "refused: %ls", qUtf16Printable(url.toDisplayString()));
}

/// What the engine itself refuses never comes to the gate.
bool IsRefusal(const QString &message)
{
    return std::ranges::any_of(
        std::array{"Not allowed to load local resource", "Not allowed to navigate",
                   "Unsafe attempt to load URL"},
        [&message](const char *beginning) { return message.startsWith(QLatin1String(beginning)); });
}

/// What the engine asks when a page does not want to be left.
QString LeaveQuestion()
{
    return QCoreApplication::translate("QWebEnginePage",
                                       "Are you sure you want to leave this page? Changes that you "
                                       "made may not be saved.");
}

/// The pages are the program's own, so their questions come under its window's title.
QMessageBox::StandardButton Ask(QWebEnginePage *page, QMessageBox::Icon icon,
                                QMessageBox::StandardButtons buttons, const QString &message)
{
    QWidget *window = QWebEngineView::forPage(page)->window();
    PlainMessageBox box(icon, window->windowTitle(), message, buttons, window);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

LocalPage::LocalPage(QWebEngineProfile *profile, QWebEngineView &view)
    : QWebEnginePage(profile, &view)
    , channel(PageChannel::Of(profile))
{
    connect(this, &QWebEnginePage::newWindowRequested, this, &LocalPage::OpenHere);
    connect(this, &QWebEnginePage::loadingChanged, this, &LocalPage::ReportUnasked);
    connect(this, &QWebEnginePage::loadingChanged, this, &LocalPage::FollowDeparture);
    RefusePermissions(*this);
}

void LocalPage::Open(const QUrl &url)
{
    departure.Begin(ShownUrl(), url);
    load(url);
}

/// The address of the engine itself is already that of the page to come.
QUrl LocalPage::ShownUrl() const
{
    return history()->currentItem().url();
}

bool LocalPage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    if (RequestGate::IsLocal(url)) {
        if (!isMainFrame)
            return true;
        if (isHeld) {
            Q_EMIT NavigationHeld(url);
            return false;
        }
        // Redirects may be those of the load that the program has begun, which lead elsewhere.
        const bool isByPage = type == NavigationTypeRedirect ? IsSamePage(url, ShownUrl())
                                                             : type != NavigationTypeTyped;
        const bool isRefused = isByPage && departure.Refuses(ShownUrl());
        if (isRefused && departure.IsFirstRefusal())
            LogRefusal(url);
        return !isRefused;
    }
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

void LocalPage::FollowDeparture(const QWebEngineLoadingInfo &info)
{
    // Without a number, the load ended with its process or its document, and not for good.
    if (info.status() == QWebEngineLoadingInfo::LoadFailedStatus && info.errorCode() != 0)
        departure.End();
    else if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus)
        departure.Continue(ShownUrl());
}

// The program has one window: what the user wants in another one opens in place.
void LocalPage::OpenHere(QWebEngineNewWindowRequest &request)
{
    const QUrl url = request.requestedUrl();
    if (request.isUserInitiated() && RequestGate::IsLocal(url))
        QMetaObject::invokeMethod(
            this, [this, url] { Open(url); }, Qt::QueuedConnection);
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
    else if (level == ErrorMessageLevel && IsRefusal(message))
        qCWarning(gateLog, "%ls", qUtf16Printable(message));
    else if (level == ErrorMessageLevel)
        qCWarning(pageLog, "%ls:%d: %ls", qUtf16Printable(source), line, qUtf16Printable(message));
    else
        qCInfo(pageLog, "%ls:%d: %ls", qUtf16Printable(source), line, qUtf16Printable(message));
}

/// Lets the question come before the user, unless the page has asked too many.
bool LocalPage::MayAsk(const QString &message)
{
    const bool mayAsk = questions.Allows();
    if (questions.IsFirstRefusal())
        qCWarning(gateLog, "refused: further questions of the page, \"%ls\"",
                  qUtf16Printable(message));
    return mayAsk;
}

QStringList LocalPage::chooseFiles(FileSelectionMode, const QStringList &, const QStringList &)
{
    qCWarning(gateLog, "refused to a page: the choice of a file");
    return {};
}

void LocalPage::javaScriptAlert(const QUrl &, const QString &message)
{
    if (!MayAsk(message))
        return;
    const QScopeGuard end([this] { questions.Ended(); });
    Ask(this, QMessageBox::Information, QMessageBox::Ok, message);
}

bool LocalPage::javaScriptConfirm(const QUrl &, const QString &message)
{
    // Every page may be left; what must not be lost is with the program.
    if (message == LeaveQuestion())
        return true;
    if (!MayAsk(message))
        return false;
    const QScopeGuard end([this] { questions.Ended(); });
    return Ask(this, QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel, message) ==
           QMessageBox::Ok;
}

bool LocalPage::javaScriptPrompt(const QUrl &, const QString &message, const QString &preset,
                                 QString *answer)
{
    if (!MayAsk(message))
        return false;
    const QScopeGuard end([this] { questions.Ended(); });
    QWidget *window = QWebEngineView::forPage(this)->window();
    bool confirmed = false;
    *answer = QInputDialog::getText(window, window->windowTitle(), message, QLineEdit::Normal,
                                    preset, &confirmed);
    return confirmed;
}

} // namespace Tesk
