#include "cart/pane/AfterPage.h"

#include "browser/WebBrowser.h"
#include "cart/pane/Log.h"

#include <QPointer>
#include <QWebEngineView>

#include <chrono>
#include <utility>

namespace Tesk {

namespace {

/// Longer than a page of thousands of lines works on its layout.
constexpr std::chrono::seconds LongestWait{8};

} // namespace

AfterPage::AfterPage(WebBrowser &browser)
    : QObject(&browser)
    , browser(browser)
{
    patience.setSingleShot(true);
    connect(&patience, &QTimer::timeout, this, [this] {
        qCWarning(cartLog, "%ls gives no answer", qUtf16Printable(this->browser.Address()));
        GoOn();
    });
    // What the page knew is gone; the queue keeps the step out of the engine's callback.
    connect(
        browser.View()->page(), &QWebEnginePage::renderProcessTerminated, this, [this] { GoOn(); },
        Qt::QueuedConnection);
}

void AfterPage::Run(const QString &script, Step next)
{
    waitingStep = std::move(next);
    const int thisTurn = ++turn;
    const bool isEngineRunning = browser.View()->page()->renderProcessPid() != 0;
    patience.start(isEngineRunning ? LongestWait : std::chrono::seconds{0});
    if (!isEngineRunning)
        return;
    const QPointer<AfterPage> self = this;
    browser.RunScript(script, [self, thisTurn](const QVariant &answer) {
        if (self && self->turn == thisTurn)
            self->GoOnWith(answer);
    });
}

AfterPage::Step AfterPage::TakeStep()
{
    patience.stop();
    return std::exchange(waitingStep, {});
}

void AfterPage::GoOnWith(const QVariant &answer)
{
    if (const Step step = TakeStep())
        step(answer);
}

void AfterPage::GoOnSoon()
{
    if (const Step step = TakeStep())
        QMetaObject::invokeMethod(
            this, [step] { step({}); }, Qt::QueuedConnection);
}

} // namespace Tesk
