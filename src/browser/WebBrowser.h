#pragma once

#include "browser/HtmlDocument.h"

#include <QWidget>

#include <functional>

class QWebEngineProfile;
class QWebEngineView;

namespace Tesk {

/// The browser control. Its signals come from the event loop, never from within a callback of the
/// engine, so a slot may open dialogs and throw.
class WebBrowser : public QWidget, public HtmlDocument
{
    Q_OBJECT

public:
    /// `profile` carries the resource scheme's handler (ResourceScheme.h) and outlives the control.
    explicit WebBrowser(QWebEngineProfile *profile, QWidget *parent = nullptr);
    ~WebBrowser() override;

    /// Opens an address of the program's spelling: `file:///` or `mk:@MSITStore:`, characters as
    /// they are spelled on disk, an optional query behind "?" and fragment behind "#".
    void Navigate(const QString &address);

    /// The address of the page shown, percent-decoded.
    QString Address() const;

    void Apply(const QList<ElementChange> &changes) override;

    /// Runs a script in the page's own world and hands its result on from the event loop.
    void RunScript(const QString &script, const std::function<void(const QVariant &)> &done = {});

    /// The view inside, for what only the engine can do (printing, zoom, tests).
    QWebEngineView *View() const { return view; }

Q_SIGNALS:
    /// The main frame finished loading, fragment jumps included. The address is percent-decoded.
    void DocumentComplete(const QString &address);
    /// A page set its status text; equal texts in a row are all reported.
    void StatusTextChange(const QString &text);

private:
    QWebEngineView *view = nullptr;
};

} // namespace Tesk
