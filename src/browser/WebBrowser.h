#pragma once

#include "browser/HtmlDocument.h"

#include <QUrl>
#include <QWebEnginePage>
#include <QWidget>

#include <functional>
#include <memory>

class QWebEngineLoadingInfo;
class QWebEngineProfile;
class QWebEngineView;

namespace Tesk {

class CatalogueError;
class LocalPage;
class PageHold;
class PageWatch;

/// The browser control. Its signals come from the event loop, never from within a callback of the
/// engine, so a slot may open dialogs and throw.
class WebBrowser : public QWidget, public HtmlDocument
{
    Q_OBJECT

public:
    /// `profile` (LocalProfile.h) outlives the control.
    explicit WebBrowser(QWebEngineProfile *profile, QWidget *parent = nullptr);
    /// Waits until its page is no longer held, but not for ever.
    ~WebBrowser() override;

    /// Gives the texts of the language files that tell the user why a page cannot be shown
    /// (Errors.h). Without it they are English.
    using TextLookup = std::function<QString(const QString &key)>;
    void SetTextLookup(const TextLookup &getText) { textLookup = getText; }

    /// Opens an address of the program's spelling: `file:///` or `mk:@MSITStore:`, characters as
    /// they are spelled on disk, an optional query behind "?" and fragment behind "#".
    void Navigate(const QString &address);

    /// The address of the page that completed last, percent-decoded. Empty before the first one
    /// and after a page that could not be shown.
    QString Address() const;
    /// The address of the page in whose place it is told that it cannot be shown, or is not shown
    /// any more. Empty while a page is shown.
    QString FailedAddress() const { return failedAddress; }

    /// Makes the changes in the page that completed last, and in no other.
    void Apply(const QList<ElementChange> &changes) override;

    /// Keeps the page that is shown, or loading, until all that this returned are gone, or its
    /// process. What the program or the page wants to open meanwhile opens then; of several the
    /// last.
    std::shared_ptr<PageHold> HoldPage();

    /// Runs a script in the page's own world and hands its result on from the event loop.
    void RunScript(const QString &script, const std::function<void(const QVariant &)> &done = {});

    /// The view inside, for what only the engine can do (printing, zoom, tests).
    QWebEngineView *View() const { return view; }

Q_SIGNALS:
    /// The main frame finished loading, fragment jumps included. The address is percent-decoded.
    /// A page completes even when another one has been asked for since: until that one is there,
    /// and if it cannot be shown, this is the page that the user sees.
    void DocumentComplete(const QString &address);
    /// The load of the main frame has ended without a page, and nothing else is loading: the
    /// address is missing, unreadable, refused or not a page, or the load was stopped.
    void LoadFailed(const QString &address);
    /// A page set its status text; equal texts in a row are all reported.
    void StatusTextChange(const QString &text);

protected:
    void customEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct Document
    {
        QUrl url;
        QString id;
    };

    void OnLoading(const QWebEngineLoadingInfo &info);
    void OnUrlChanged(const QUrl &url);
    void OnDocumentLoaded(const QString &id);
    /// The watch ends this process of the engine.
    void OnProcessEnds(qint64 process);
    void OnTermination(QWebEnginePage::RenderProcessTerminationStatus status, int exitCode);
    void Complete(const QUrl &url);
    void GiveChannel(const QUrl &url);
    void Load(const QUrl &url);
    void OpenHeld();
    void EndHold();
    void ShowFailure(const QUrl &url, const CatalogueError &error);
    void ReportEndedLoad(const QUrl &url);
    void ReportStatusText(const QString &text);
    void ReportChanges(const QVariant &result, const QList<ElementChange> &changes,
                       const QString &address);
    /// Runs `task` from the event loop, after everything that was queued before.
    void Queue(const std::function<void()> &task);

    QWebEngineView *view = nullptr;
    LocalPage *page = nullptr;
    PageWatch &watch;
    TextLookup textLookup;
    /// How often the program asked for a page.
    int requests = 0;
    /// The page asked for last, until its load begins, and the one whose load began last.
    QUrl requestedUrl;
    QUrl loadingUrl;
    std::weak_ptr<PageHold> hold;
    /// What waits for the hold to end.
    QUrl heldUrl;
    std::function<void()> endOfHold;
    bool isEnding = false;
    bool isLoading = false;
    bool isStopped = false;
    /// What ended with the process of a page that was stopped while this one was not seen.
    QUrl urlWhenSeen;
    bool isReportingStatus = false;
    /// Whether the document of the load that began last has told its id.
    bool isDocumentKnown = false;
    QString newestDocumentId;
    QString completeDocumentId;
    /// What completed last by the engine's account, and by the account of our listeners, whom the
    /// event loop tells a little later.
    QUrl loadedUrl;
    Document reported;
    QString failedAddress;
    /// What was loaded again after the engine's process ended.
    QUrl reloadedUrl;
};

} // namespace Tesk
