#include "browser/WebBrowser.h"

#include "browser/Address.h"
#include "browser/LocalPage.h"
#include "browser/Log.h"
#include "browser/PageScript.h"

#include <QPointer>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <QWebEngineView>

namespace Tesk {
namespace {

/// Other addresses are never the program's pages: blank pages, our own messages.
bool IsContent(const QUrl &url)
{
    return url.isLocalFile() || url.scheme() == QLatin1String("mk");
}

} // namespace

WebBrowser::WebBrowser(QWebEngineProfile *profile, QWidget *parent)
    : QWidget(parent)
    , view(new QWebEngineView(this))
    , page(new LocalPage(profile, view))
{
    view->setPage(page);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    setFocusProxy(view);

    connect(page, &QWebEnginePage::loadingChanged, this, &WebBrowser::OnLoading);
    connect(page, &QWebEnginePage::urlChanged, this, &WebBrowser::OnUrlChanged);
    connect(page, &LocalPage::DocumentCreated, this,
            [this](const QString &id) { newestDocumentId = id; });
    connect(page, &LocalPage::StatusTextSet, this,
            [this](const QString &text) { Queue([this, text] { ReportStatusText(text); }); });
}

WebBrowser::~WebBrowser() = default;

void WebBrowser::Queue(const std::function<void()> &task)
{
    QMetaObject::invokeMethod(this, task, Qt::QueuedConnection);
}

void WebBrowser::Navigate(const QString &address)
{
    page->load(Address::ToUrl(address));
}

QString WebBrowser::Address() const
{
    return reported.url.isEmpty() ? QString() : Address::FromUrl(reported.url);
}

void WebBrowser::OnLoading(const QWebEngineLoadingInfo &info)
{
    isLoading = info.status() == QWebEngineLoadingInfo::LoadStartedStatus;
    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus)
        Complete(page->url());
    else if (info.status() == QWebEngineLoadingInfo::LoadFailedStatus)
        qCWarning(browserLog, "%ls cannot be shown: %ls",
                  qUtf16Printable(Address::FromUrl(info.url())),
                  qUtf16Printable(info.errorString()));
}

// A jump inside the document loads nothing and so ends no load.
void WebBrowser::OnUrlChanged(const QUrl &url)
{
    if (!isLoading && url != loadedUrl &&
        url.adjusted(QUrl::RemoveFragment) == loadedUrl.adjusted(QUrl::RemoveFragment))
        Complete(url);
}

void WebBrowser::Complete(const QUrl &url)
{
    loadedUrl = url;
    if (!IsContent(url))
        return;
    Queue([this, document = Document{url, newestDocumentId}] {
        reported = document;
        Q_EMIT DocumentComplete(Address());
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
                  ReportChanges(result.toInt(), changes, address);
              });
}

void WebBrowser::ReportChanges(int result, const QList<ElementChange> &changes,
                               const QString &address)
{
    if (result == PageScript::otherDocument) {
        qCWarning(browserLog, "changes for %ls dropped: the page has moved on",
                  qUtf16Printable(address));
    } else if (result >= 0 && result < changes.size()) {
        qCWarning(browserLog, "%ls has no element \"%ls\": this and later changes dropped",
                  qUtf16Printable(address), qUtf16Printable(changes.at(result).id));
    }
}

void WebBrowser::RunScript(const QString &script, const std::function<void(const QVariant &)> &done)
{
    const QPointer<WebBrowser> self = this;
    page->runJavaScript(script, QWebEngineScript::MainWorld, [self, done](const QVariant &result) {
        if (self && done)
            self->Queue([done, result] { done(result); });
    });
}

} // namespace Tesk
