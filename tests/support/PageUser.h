#pragma once

#include "support/WaitUntil.h"

#include <QPoint>
#include <QString>
#include <QVariant>

#include <functional>
#include <optional>

namespace Tesk {

class WebBrowser;

/// A person before the page of one browser: looks at it, and uses mouse and keyboard on it. Every
/// wait is for a condition and has an end (WaitUntil.h).
class PageUser final
{
public:
    /// `browser` outlives the object.
    explicit PageUser(WebBrowser &browser);

    /// The value of a script expression on the page shown; on the next one where that is just being
    /// left. Invalid when none comes within `limit` milliseconds.
    QVariant Evaluate(const QString &expression, int limit = WaitLimit);
    /// Whether the expression gets a wanted value on a page whose address contains `addressPart`.
    bool WaitForValue(const QString &addressPart, const QString &expression,
                      const std::function<bool(const QVariant &)> &isWanted, int limit = WaitLimit);
    /// Whether the expression becomes true on a page whose address contains `addressPart`.
    bool WaitFor(const QString &addressPart, const QString &expression);
    /// Runs the action and waits until a page has completed after it; whether its address contains
    /// `addressPart`.
    bool WaitForPageAfter(const QString &addressPart, const std::function<void()> &action);
    /// Waits until the page has drawn its present state.
    bool WaitForPaint();

    /// Clicks the middle of the first element that matches, with the mouse. False without one.
    bool Click(const QString &selector);
    /// Moves the mouse to the middle of the first element that matches. False without one.
    bool Hover(const QString &selector);
    /// Clicks into the field and types the text in place of what stands there, and stays in it.
    /// False without such a field.
    bool TypeInto(const QString &selector, const QString &text);
    /// Presses a key where the focus is in the page.
    void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// The middle of the first element that matches, in the view's measure. The element is in sight
    /// then.
    std::optional<QPoint> PlaceOf(const QString &selector);

private:
    QWidget *Target() const;

    WebBrowser &browser;
};

} // namespace Tesk
