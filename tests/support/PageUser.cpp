#include "support/PageUser.h"

#include "browser/WebBrowser.h"
#include "support/WaitUntil.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>
#include <QWebEngineView>

#include <memory>

namespace Tesk {

namespace {

/// A script's list of this one text.
QString Quoted(const QString &text)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact));
}

} // namespace

PageUser::PageUser(WebBrowser &browser)
    : browser(browser)
{}

QVariant PageUser::Evaluate(const QString &expression)
{
    return Evaluate(expression, WaitLimit);
}

QVariant PageUser::Evaluate(const QString &expression, int limit)
{
    const auto answer = std::make_shared<std::optional<QVariant>>();
    browser.RunScript(expression, [answer](const QVariant &value) { *answer = value; });
    if (!WaitUntil([&] { return answer->has_value(); }, limit))
        return {};
    return **answer;
}

bool PageUser::WaitFor(const QString &addressPart, const QString &expression)
{
    return WaitUntil([&] {
        return browser.Address().contains(addressPart) &&
               Evaluate(QStringLiteral("Boolean(%1)").arg(expression), PollLimit).toBool();
    });
}

bool PageUser::WaitForPageAfter(const QString &addressPart, const std::function<void()> &action)
{
    const QSignalSpy pages(&browser, &WebBrowser::DocumentComplete);
    action();
    return WaitUntil([&] { return !pages.isEmpty() && browser.Address().contains(addressPart); });
}

void PageUser::WaitForPaint()
{
    Evaluate(QStringLiteral("void(window.teskPainted = false,"
                            " requestAnimationFrame(() => requestAnimationFrame("
                            " () => { window.teskPainted = true })))"));
    const bool isPainted =
        WaitUntil([this] { return Evaluate(QStringLiteral("window.teskPainted")).toBool(); });
    if (!isPainted)
        qWarning("The page was not painted within %d ms.", WaitLimit);
}

std::optional<QPoint> PageUser::PlaceOf(const QString &selector)
{
    const QString quoted = Quoted(selector);
    const QVariantList place =
        Evaluate(QStringLiteral("(() => { const e = document.querySelector(%1[0]);"
                                " if (!e) return [];"
                                " e.scrollIntoView({ block: 'nearest' });"
                                " const r = e.getBoundingClientRect();"
                                " return [r.left + r.width / 2, r.top + r.height / 2] })()")
                     .arg(quoted))
            .toList();
    if (place.size() != 2)
        return std::nullopt;
    // The page counts in its own pixels.
    return (QPointF(place[0].toDouble(), place[1].toDouble()) * browser.View()->zoomFactor())
        .toPoint();
}

/// The engine's own widget, which takes what the user does.
QWidget *PageUser::Target() const
{
    return browser.View()->focusProxy();
}

bool PageUser::Click(const QString &selector)
{
    const std::optional<QPoint> place = PlaceOf(selector);
    if (!place)
        return false;
    QTest::mouseMove(Target(), *place);
    QTest::mouseClick(Target(), Qt::LeftButton, {}, *place);
    return true;
}

bool PageUser::Hover(const QString &selector)
{
    const std::optional<QPoint> place = PlaceOf(selector);
    // Through the window: where nothing is displayed, the cursor itself goes astray at a scale
    // of 2.
    if (place)
        QTest::mouseMove(browser.window()->windowHandle(),
                         Target()->mapTo(browser.window(), *place));
    return place.has_value();
}

bool PageUser::TypeInto(const QString &selector, const QString &text)
{
    if (!Click(selector))
        return false;
    PressKey(Qt::Key_A, Qt::ControlModifier);
    // Qt Test types plain ASCII only, unless the key's text is given.
    for (const char32_t character : text.toUcs4())
        QTest::sendKeyEvent(QTest::Click, Target(), Qt::Key_unknown,
                            QString::fromUcs4(&character, 1), Qt::NoModifier);
    // Nobody acts on before the page has taken the last key.
    return WaitUntil([&] {
        return Evaluate(
                   QStringLiteral("document.querySelector(%1[0])?.value").arg(Quoted(selector)))
                   .toString() == text;
    });
}

void PageUser::PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(Target(), key, modifiers);
}

} // namespace Tesk
