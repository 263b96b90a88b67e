#include "support/PageUser.h"

#include "browser/WebBrowser.h"
#include "support/WaitUntil.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>
#include <QWebEngineView>

#include <memory>
#include <utility>

namespace Tesk {

namespace {

/// A script's list of this one text.
QString Quoted(const QString &text)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact));
}

/// Asks a page for the value of an expression. A page that is left takes the question along: then
/// the next one is asked.
class Question final
{
public:
    /// `browser` outlives the object.
    Question(WebBrowser &browser, const QString &expression)
        : browser(browser)
        , expression(expression)
    {
        const auto askAnew = [this] { answer.reset(); };
        QObject::connect(&browser, &WebBrowser::DocumentComplete, &context, askAnew);
        QObject::connect(browser.View()->page(), &QWebEnginePage::loadFinished, &context, askAnew);
    }

    /// The answer, once it is there; the next call asks again then.
    std::optional<QVariant> TakeAnswer()
    {
        if (answer && answer->has_value())
            return *std::exchange(answer, nullptr);
        if (!answer) {
            answer = std::make_shared<std::optional<QVariant>>();
            browser.RunScript(expression,
                              [answer = answer](const QVariant &value) { *answer = value; });
        }
        return std::nullopt;
    }

private:
    WebBrowser &browser;
    QString expression;
    QObject context;
    std::shared_ptr<std::optional<QVariant>> answer;
};

QString Tell(const QSignalSpy &pages)
{
    return QStringLiteral("(%1 pages completed meanwhile)").arg(pages.count());
}

} // namespace

PageUser::PageUser(WebBrowser &browser)
    : browser(browser)
{}

QVariant PageUser::Evaluate(const QString &expression, int limit)
{
    Question question(browser, expression);
    std::optional<QVariant> answer;
    const auto isAnswered = [&] {
        answer = question.TakeAnswer();
        return answer.has_value();
    };
    if (!WaitUntil(isAnswered, limit))
        qWarning().noquote() << browser.Address() << "gives no answer to" << expression;
    return answer.value_or(QVariant());
}

bool PageUser::WaitFor(const QString &addressPart, const QString &expression)
{
    return WaitForValue(
        addressPart, QStringLiteral("Boolean(%1)").arg(expression),
        [](const QVariant &value) { return value.toBool(); }, WaitLimit);
}

bool PageUser::WaitForValue(const QString &addressPart, const QString &expression,
                            const std::function<bool(const QVariant &)> &isWanted, int limit)
{
    const QSignalSpy pages(&browser, &WebBrowser::DocumentComplete);
    Question question(browser, expression);
    std::optional<QVariant> last;
    const auto isThere = [&] {
        if (!browser.Address().contains(addressPart))
            return false;
        const std::optional<QVariant> answer = question.TakeAnswer();
        if (answer)
            last = answer;
        return answer && isWanted(*answer);
    };
    if (WaitUntil(isThere, limit))
        return true;
    qWarning().noquote() << browser.Address() << "in place of" << addressPart << "answered"
                         << last.value_or(QVariant()) << "last to" << expression << Tell(pages);
    return false;
}

bool PageUser::WaitForPageAfter(const QString &addressPart, const std::function<void()> &action)
{
    const QSignalSpy pages(&browser, &WebBrowser::DocumentComplete);
    action();
    if (WaitUntil([&] { return !pages.isEmpty() && browser.Address().contains(addressPart); }))
        return true;
    qWarning().noquote() << browser.Address() << "in place of" << addressPart << Tell(pages);
    return false;
}

bool PageUser::WaitForPaint()
{
    Evaluate(QStringLiteral("void(window.teskPainted = false,"
                            " requestAnimationFrame(() => requestAnimationFrame("
                            " () => { window.teskPainted = true })))"));
    return WaitFor(QString(), QStringLiteral("window.teskPainted"));
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
    if (text.isEmpty())
        PressKey(Qt::Key_Delete);
    // Qt Test types plain ASCII only, unless the key's text is given.
    for (const char32_t character : text.toUcs4())
        QTest::sendKeyEvent(QTest::Click, Target(), Qt::Key_unknown,
                            QString::fromUcs4(&character, 1), Qt::NoModifier);
    // Nobody acts on before the page has taken the last key.
    return WaitForValue(
        QString(), QStringLiteral("document.querySelector(%1[0])?.value").arg(Quoted(selector)),
        [&](const QVariant &value) { return value.toString() == text; });
}

void PageUser::PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(Target(), key, modifiers);
}

} // namespace Tesk
