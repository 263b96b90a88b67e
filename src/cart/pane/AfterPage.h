#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <QVariant>

#include <functional>

namespace Tesk {

class WebBrowser;

/// Goes on with something once the page has run a script and all that it reported before has been
/// heard. A page that gives no answer, because the engine failed or hangs, holds nothing up for
/// long: then it goes on without one.
class AfterPage final : public QObject
{
    Q_OBJECT

public:
    /// `answer`: the script's value, invalid without one.
    using Step = std::function<void(const QVariant &answer)>;

    /// Belongs to the browser.
    explicit AfterPage(WebBrowser &browser);

    /// Runs the script, and `next` after it from the event loop. Takes the place of a step that
    /// still waits.
    void Run(const QString &script, Step next);
    /// Takes the step that waits, if any, now and without an answer.
    void GoOn() { GoOnWith({}); }
    /// The same from the event loop. Until then another step may begin to wait.
    void GoOnSoon();
    bool IsWaiting() const { return static_cast<bool>(waitingStep); }

private:
    void GoOnWith(const QVariant &answer);
    Step TakeStep();

    WebBrowser &browser;
    Step waitingStep;
    /// Tells the page's answer to a step from the answer to an earlier one.
    int turn = 0;
    QTimer patience;
};

} // namespace Tesk
