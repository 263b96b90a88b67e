#include "browser/PageZoom.h"

#include "browser/WebBrowser.h"

#include <QApplication>
#include <QWebEngineView>
#include <QWheelEvent>

#include <algorithm>
#include <array>

namespace Tesk {
namespace {

constexpr std::array Steps{50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};

} // namespace

PageZoom::PageZoom(const QList<WebBrowser *> &controls, QObject *parent)
    : QObject(parent)
    , browsers(controls)
{
    // The engine forgets the factor on the way to an address of another kind.
    for (WebBrowser *const browser : browsers)
        connect(browser, &WebBrowser::DocumentComplete, this, [this, browser] { Apply(browser); });
    // The widget that gets the wheel is the engine's own and changes with its process.
    qApp->installEventFilter(this);
}

void PageZoom::In()
{
    const auto next = std::upper_bound(Steps.begin(), Steps.end(), percent);
    SetPercent(next == Steps.end() ? Steps.back() : *next);
}

void PageZoom::Out()
{
    const auto here = std::lower_bound(Steps.begin(), Steps.end(), percent);
    SetPercent(here == Steps.begin() ? Steps.front() : *(here - 1));
}

void PageZoom::Reset()
{
    SetPercent(OwnSize);
}

void PageZoom::SetPercent(int value)
{
    if (value == percent)
        return;
    percent = value;
    for (WebBrowser *const browser : browsers)
        Apply(browser);
    Q_EMIT PercentChanged(percent);
}

void PageZoom::Apply(WebBrowser *browser) const
{
    browser->View()->setZoomFactor(percent / 100.0);
}

bool PageZoom::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel)
        return false;
    const auto *const wheel = static_cast<QWheelEvent *>(event);
    const auto *const widget = qobject_cast<QWidget *>(watched);
    const auto holds = [widget](const WebBrowser *browser) {
        return browser->isAncestorOf(widget);
    };
    if (!wheel->modifiers().testFlag(Qt::ControlModifier) || widget == nullptr ||
        std::none_of(browsers.begin(), browsers.end(), holds))
        return false;
    for (turned += wheel->angleDelta().y(); turned >= QWheelEvent::DefaultDeltasPerStep;
         turned -= QWheelEvent::DefaultDeltasPerStep)
        In();
    for (; turned <= -QWheelEvent::DefaultDeltasPerStep;
         turned += QWheelEvent::DefaultDeltasPerStep)
        Out();
    return true;
}

} // namespace Tesk
