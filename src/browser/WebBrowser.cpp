#include "browser/WebBrowser.h"

#include "browser/Address.h"
#include "browser/BrowserMenu.h"
#include "browser/FailurePage.h"
#include "browser/LocalPage.h"
#include "browser/Log.h"
#include "browser/PageChannel.h"
#include "browser/PageHold.h"
#include "browser/PageScript.h"
#include "browser/PageWatch.h"
#include "browser/TaskEvent.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <chrono>
#include <utility>

namespace Tesk {
namespace {

/// Longer than the engine takes for the sheets of thousands of lines.
constexpr std::chrono::minutes LongestHold{5};

/// Other addresses are never the program's pages: blank pages, our own messages.
bool IsContent(const QUrl &url)
{
    return url.isLocalFile() || url.scheme() == QLatin1String("mk");
}

/// The engine's number for a refusal of the gate.
constexpr int BlockedByClient = -20;

/// The engine's number for a file or member that does not exist.
constexpr int FileNotFound = -6;

bool DiffersInFragmentOnly(const QUrl &left, const QUrl &right)
{
    return left != right &&
           left.adjusted(QUrl::RemoveFragment) == right.adjusted(QUrl::RemoveFragment);
}

} // namespace

WebBrowser::WebBrowser(QWebEngineProfile *profile, QWidget *parent)
    : QWidget(parent)
    , view(new QWebEngineView(this))
    , page(new LocalPage(profile, *view))
    , watch(PageWatch::Of(profile))
    , textLookup([](const QString &) { return QString(); })
{
    view->setPage(page);
    watch.Watch(*view);
    connect(&watch, &PageWatch::ProcessEnds, this, &WebBrowser::OnProcessEnds);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    setFocusProxy(view);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view, &QWidget::customContextMenuRequested, this,
            [this](const QPoint &position) { ShowBrowserMenu(view, position); });

    connect(page, &QWebEnginePage::loadingChanged, this, &WebBrowser::OnLoading);
    connect(page, &QWebEnginePage::urlChanged, this, &WebBrowser::OnUrlChanged);
    connect(page, &QWebEnginePage::renderProcessTerminated, this, &WebBrowser::OnTermination);
    connect(page, &LocalPage::DocumentCreated, this, [this](const QString &id) {
        newestDocumentId = id;
        isDocumentKnown = true;
        watch.NoteLife();
    });
    connect(page, &LocalPage::DocumentLoaded, this, &WebBrowser::OnDocumentLoaded);
    connect(page, &LocalPage::NavigationHeld, this, [this](const QUrl &url) {
        ++requests;
        heldUrl = url;
    });
    connect(page, &LocalPage::StatusTextSet, this,
            [this](const QString &text) { Queue([this, text] { ReportStatusText(text); }); });
}

WebBrowser::~WebBrowser()
{
    // The engine fails when it loses a page of which it is making sheets. Nothing else goes on
    // meanwhile: whoever listens may have ended already.
    isEnding = true;
    blockSignals(true);
    for (QObject *const child : children())
        child->blockSignals(true);
    if (!hold.expired()) {
        QEventLoop loop;
        endOfHold = [&loop] { loop.quit(); };
        QTimer::singleShot(LongestHold, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        if (const std::shared_ptr<PageHold> held = hold.lock()) {
            held->Forget();
            watch.EndHold();
        }
    }
    // A page that ends gives every answer it owes, and those look at this class's part.
    delete page;
}

void WebBrowser::Queue(const std::function<void()> &task)
{
    QCoreApplication::postEvent(this, new TaskEvent(task));
}

void WebBrowser::customEvent(QEvent *event)
{
    if (event->type() != TaskEvent::TypeId() || isEnding)
        return;
    // An event loop that the task opens would sleep on the events posted before it, and the
    // engine's next step is one of them: the page behind a dialog would freeze.
    QAbstractEventDispatcher::instance()->wakeUp();
    static_cast<TaskEvent *>(event)->Run();
}

void WebBrowser::Navigate(const QString &address)
{
    ++requests;
    watch.NoteRequest();
    Load(Address::ToUrl(address));
}

void WebBrowser::Load(const QUrl &url)
{
    requestedUrl = url;
    urlWhenSeen.clear();
    page->Open(url);
}

std::shared_ptr<PageHold> WebBrowser::HoldPage()
{
    std::shared_ptr<PageHold> held = hold.lock();
    if (!held) {
        held = std::make_shared<PageHold>([this] { EndHold(); });
        hold = held;
        page->SetHeld(true);
        watch.BeginHold();
    }
    return held;
}

void WebBrowser::EndHold()
{
    page->SetHeld(false);
    watch.EndHold();
    if (endOfHold)
        endOfHold();
    // The end of a load that was not let through is reported in between.
    Queue([this] { OpenHeld(); });
}

void WebBrowser::OpenHeld()
{
    if (hold.expired() && !heldUrl.isEmpty())
        Load(std::exchange(heldUrl, {}));
}

QString WebBrowser::Address() const
{
    return reported.url.isEmpty() ? QString() : Address::FromUrl(reported.url);
}

void WebBrowser::OnLoading(const QWebEngineLoadingInfo &info)
{
    isLoading = info.status() == QWebEngineLoadingInfo::LoadStartedStatus;
    if (isLoading)
        loadingUrl = info.url();
    if (isLoading || info.url() == requestedUrl)
        requestedUrl.clear();
    switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
        isDocumentKnown = false;
        break;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
        Complete(page->url());
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus:
        if (const QUrl next = page->TakeUp(); !next.isEmpty()) {
            Queue([this, next, request = requests] {
                // Meanwhile another page may have been asked for.
                if (request == requests)
                    Load(next);
            });
            break;
        }
        // A jump asked for during the load ended it.
        OnUrlChanged(page->url());
        if (info.url() != heldUrl)
            ReportEndedLoad(info.url());
        break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
        // The load ended with its process, of which OnTermination hears.
        if (info.errorCode() == 0)
            break;
        // The gate refused and said so; the page that asked stays.
        if (info.errorCode() == BlockedByClient) {
            ReportEndedLoad(info.url());
            break;
        }
        ShowFailure(info.url(), info.errorCode() == FileNotFound
                                    ? PageError::Missing()
                                    : PageError::Unreadable(info.errorString()));
        break;
    }
}

// The engine reports no end of a load for a page that takes the place of one whose load is about to
// end, and the end of some before the page's id has come.
void WebBrowser::OnDocumentLoaded(const QString &id)
{
    newestDocumentId = id;
    isDocumentKnown = true;
    // The engine knows of the begin of a load before it reports it.
    if (!isLoading && !page->isLoading() && id != completeDocumentId)
        Complete(page->url());
}

// A jump inside the document loads nothing and so ends no load.
void WebBrowser::OnUrlChanged(const QUrl &url)
{
    if (!isLoading && DiffersInFragmentOnly(url, loadedUrl))
        Complete(url);
}

void WebBrowser::Complete(const QUrl &url)
{
    loadedUrl = url;
    if (!IsContent(url))
        return;
    if (!isDocumentKnown) {
        GiveChannel(url);
        return;
    }
    completeDocumentId = newestDocumentId;
    if (url != reloadedUrl)
        reloadedUrl.clear();
    Queue([this, document = Document{url, newestDocumentId}] {
        reported = document;
        failedAddress.clear();
        Q_EMIT DocumentComplete(Address());
    });
}

/// A page whose id has not come yet gets the script that tells it, unless it has it; it is complete
/// then.
void WebBrowser::GiveChannel(const QUrl &url)
{
    const QPointer<WebBrowser> self = this;
    page->runJavaScript(PageChannel::Of(page->profile()).Script(), QWebEngineScript::MainWorld,
                        [self, url](const QVariant &) {
                            if (!self || self->isEnding || self->isLoading ||
                                self->loadedUrl != url)
                                return;
                            const bool isKnown = std::exchange(self->isDocumentKnown, true);
                            if (!isKnown || self->newestDocumentId != self->completeDocumentId)
                                self->Complete(url);
                        });
}

void WebBrowser::ShowFailure(const QUrl &url, const CatalogueError &error)
{
    const QString address = Address::FromUrl(url);
    qCWarning(browserLog, "%ls cannot be shown. %ls", qUtf16Printable(address),
              qUtf16Printable(error.Message()));
    Queue([this, address, error, request = requests] {
        // Meanwhile another page may have been asked for.
        if (isLoading || request != requests)
            return;
        reported = {};
        failedAddress = address;
        page->setHtml(FailurePage(address, error, textLookup));
        Q_EMIT LoadFailed(address);
    });
}

void WebBrowser::ReportEndedLoad(const QUrl &url)
{
    Queue([this, url, request = requests] {
        // The load that takes this one's place ends on its own.
        if (!isLoading && request == requests)
            Q_EMIT LoadFailed(Address::FromUrl(url));
    });
}

void WebBrowser::OnProcessEnds(qint64 process)
{
    isStopped = page->renderProcessPid() == process;
    // Whichever page was stopped, it has not failed.
    if (isStopped)
        reloadedUrl.clear();
}

void WebBrowser::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!urlWhenSeen.isEmpty())
        Load(std::exchange(urlWhenSeen, {}));
}

void WebBrowser::OnTermination(QWebEnginePage::RenderProcessTerminationStatus status, int exitCode)
{
    if (status == QWebEnginePage::NormalTerminationStatus)
        return;
    // The engine itself has forgotten what it was asked for.
    const bool isAnotherNext = !requestedUrl.isEmpty() || (isLoading && !isDocumentKnown);
    const bool hasStopped = std::exchange(isStopped, false) && !isAnotherNext;
    const QUrl shownUrl = isLoading ? loadingUrl : loadedUrl;
    const QUrl url = requestedUrl.isEmpty() ? shownUrl : std::exchange(requestedUrl, {});
    isLoading = false;
    // What waits for the hold takes the place of the page, for which nobody can hold it any more.
    if (!heldUrl.isEmpty())
        return;
    if (hasStopped && isVisible()) {
        ShowFailure(url, PageError::Stopped());
        return;
    }
    // It may be this one whose script runs without end: that is seen once it is.
    if (hasStopped) {
        urlWhenSeen = url;
        return;
    }
    // A page that brings the engine down would do so for ever.
    if (url == reloadedUrl) {
        ShowFailure(url, PageError::EngineFailed());
        return;
    }
    qCWarning(browserLog, "the engine failed (%d) on %ls, which is loaded again", exitCode,
              qUtf16Printable(Address::FromUrl(url)));
    reloadedUrl = url;
    Queue([this, url, request = requests] {
        // Meanwhile another page may have been asked for.
        if (request == requests)
            Load(url);
    });
}

void WebBrowser::ReportStatusText(const QString &text)
{
    // A listener's dialog is still open: the text belongs to the page behind it.
    if (isReportingStatus) {
        qCInfo(browserLog, "status text dropped: %ls", qUtf16Printable(text));
        return;
    }
    const QScopedValueRollback<bool> guard(isReportingStatus, true);
    Q_EMIT StatusTextChange(text);
}

void WebBrowser::Apply(const QList<ElementChange> &changes)
{
    RunScript(PageScript::ForChanges(reported.id, changes),
              [this, changes, address = Address()](const QVariant &result) {
                  ReportChanges(result, changes, address);
              });
}

void WebBrowser::ReportChanges(const QVariant &result, const QList<ElementChange> &changes,
                               const QString &address)
{
    bool isNumber = false;
    const int number = result.toInt(&isNumber);
    if (!isNumber) {
        qCWarning(browserLog, "changes for %ls: the page gave no answer", qUtf16Printable(address));
    } else if (number == PageScript::AllChangesMade) {
        qCInfo(changesLog, "%ls is filled", qUtf16Printable(address));
    } else if (number == PageScript::OtherDocument) {
        qCWarning(browserLog, "changes for %ls dropped: the page has moved on",
                  qUtf16Printable(address));
    } else if (number >= 0 && number < changes.size()) {
        qCWarning(browserLog, "%ls has no element \"%ls\": this and later changes dropped",
                  qUtf16Printable(address), qUtf16Printable(changes.at(number).id));
    }
}

void WebBrowser::RunScript(const QString &script, const std::function<void(const QVariant &)> &done)
{
    const QPointer<WebBrowser> self = this;
    page->runJavaScript(script, QWebEngineScript::MainWorld, [self, done](const QVariant &result) {
        if (self && !self->isEnding && done)
            self->Queue([done, result] { done(result); });
    });
}

} // namespace Tesk
