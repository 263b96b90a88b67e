#include "ShowingWatch.h"

#include "browser/WebBrowser.h"
#include "support/WaitUntil.h"

#include <QWebEngineView>

namespace Tesk {

namespace {

const QString TitleMark = QStringLiteral("shown at ");

/// %1 leads from the page with all its pictures to the stage asked for.
const QString Script =
    QStringLiteral("Promise.all([...document.images].map(image => image.complete ||"
                   " new Promise(end => { image.onload = image.onerror = end })))%1"
                   ".then(() => { document.title = 'shown at '"
                   " + (performance.timeOrigin + performance.now()) })");

const QString UntilPainted =
    QStringLiteral(".then(() => new Promise(end => requestAnimationFrame(() => setTimeout(end))))");

} // namespace

ShowingWatch::ShowingWatch(WebBrowser &browser)
    : browser(browser)
{
    connect(browser.View(), &QWebEngineView::titleChanged, this, [this](const QString &title) {
        if (title.startsWith(TitleMark))
            time = title.mid(TitleMark.size()).toDouble();
    });
}

void ShowingWatch::Ask(Stage stage)
{
    time.reset();
    browser.RunScript(Script.arg(stage == Stage::Painted ? UntilPainted : QString()));
}

double ShowingWatch::Time()
{
    if (!WaitUntil([this] { return time.has_value(); }))
        qFatal("the page %s does not show", qPrintable(browser.Address()));
    return *time;
}

} // namespace Tesk
