#include "browser/PageWatch.h"

#include "browser/Log.h"

#include <QApplication>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <algorithm>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <csignal>
#endif

namespace Tesk {
namespace {

constexpr const char *WatchName = "TeskPageWatch";

/// A script that never returns hears of no kinder request.
void EndProcess(qint64 process)
{
#ifdef Q_OS_WIN
    if (const HANDLE handle = OpenProcess(PROCESS_TERMINATE, FALSE, static_cast<DWORD>(process))) {
        TerminateProcess(handle, 1);
        CloseHandle(handle);
    }
#else
    ::kill(static_cast<pid_t>(process), SIGKILL);
#endif
}

/// Whoever looks into a page with developer tools stops it for as long as he likes.
bool IsForDevelopers()
{
    return qEnvironmentVariableIsSet("QTWEBENGINE_REMOTE_DEBUGGING") ||
           qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").contains("--remote-debugging");
}

} // namespace

PageWatch &PageWatch::Of(QWebEngineProfile *profile)
{
    auto *const watch =
        profile->findChild<PageWatch *>(QLatin1String(WatchName), Qt::FindDirectChildrenOnly);
    return watch != nullptr ? *watch : *new PageWatch(profile);
}

PageWatch::PageWatch(QWebEngineProfile *profile)
    : QObject(profile)
{
    setObjectName(QLatin1String(WatchName));
    connect(&timer, &QTimer::timeout, this, &PageWatch::Tick);
    if (!IsForDevelopers())
        timer.start(patience.interval);
}

void PageWatch::Watch(QWebEngineView &view)
{
    views.removeAll(nullptr);
    views.append(&view);
    connect(view.page(), &QWebEnginePage::renderProcessPidChanged, this, &PageWatch::BeginAnew);
}

void PageWatch::SetPatience(const Patience &newPatience)
{
    patience = newPatience;
    timer.setInterval(patience.interval);
}

void PageWatch::BeginAnew()
{
    unanswered = 0;
    hasAnswered = false;
}

QWebEngineView *PageWatch::SeenView() const
{
    const auto seen = std::ranges::find_if(views, [](const QPointer<QWebEngineView> &view) {
        return view && view->isVisible() && view->page()->renderProcessPid() > 0;
    });
    return seen == views.end() ? nullptr : seen->data();
}

int PageWatch::Limit() const
{
    if (holds > 0)
        return patience.holding;
    const int limit = isLeaving ? patience.leaving : patience.usual;
    return hasAnswered ? limit : 2 * limit;
}

void PageWatch::Tick()
{
    QWebEngineView *const view = SeenView();
    if (view == nullptr || QApplication::activeModalWidget() != nullptr) {
        unanswered = 0;
        return;
    }
    if (unanswered < Limit()) {
        ++unanswered;
        Ask(*view);
        return;
    }
    qCWarning(gateLog, "a page's script runs without end: the engine's process is ended");
    const qint64 process = view->page()->renderProcessPid();
    BeginAnew();
    isLeaving = false;
    Q_EMIT ProcessEnds(process);
    EndProcess(process);
}

// A page that is being left may take a question along, so each counts for itself.
void PageWatch::Ask(QWebEngineView &view)
{
    view.page()->runJavaScript(QStringLiteral("0"), QWebEngineScript::MainWorld,
                               [self = QPointer<PageWatch>(this)](const QVariant &answer) {
                                   if (!self || !answer.isValid())
                                       return;
                                   self->NoteLife();
                                   Q_EMIT self->Answered();
                               });
}

void PageWatch::NoteLife()
{
    unanswered = 0;
    isLeaving = false;
    hasAnswered = true;
}

} // namespace Tesk
