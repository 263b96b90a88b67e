#include "PageHand.h"

#include "Dice.h"

#include "browser/WebBrowser.h"
#include "support/PageUser.h"

#include <QTest>
#include <QWebEngineView>

namespace Tesk {

PageHand::PageHand(WebBrowser &browser)
    : browser(browser)
{}

bool PageHand::IsInSight() const
{
    return browser.isVisible() && Target() != nullptr;
}

QWidget *PageHand::Target() const
{
    return browser.View()->focusProxy();
}

std::optional<PageHand::Element> PageHand::OneOf(const QString &selector, Dice &dice)
{
    const int number = dice.Below(INT_MAX);
    if (!IsInSight())
        return std::nullopt;
    const QVariantList answer =
        PageUser(browser)
            .Evaluate(
                QStringLiteral("(all => { const e = all[%1 % all.length];"
                               " if (!e) return [];"
                               " e.scrollIntoView({ block: 'nearest' });"
                               " const r = e.getBoundingClientRect();"
                               " return [r.left + r.width / 2, r.top + r.height / 2,"
                               "  e.getAttribute('href') ?? e.getAttribute('onclick') ?? e.id]"
                               "})([...document.querySelectorAll(\"%2\")]"
                               " .filter(e => e.getClientRects().length > 0))")
                    .arg(number)
                    .arg(selector))
            .toList();
    if (answer.size() != 3 || !IsInSight())
        return std::nullopt;
    const QPoint place =
        (QPointF(answer[0].toDouble(), answer[1].toDouble()) * browser.View()->zoomFactor())
            .toPoint();
    if (!Target()->rect().contains(place))
        return std::nullopt;
    return Element{place, answer[2].toString()};
}

QString PageHand::ClickOneOf(const QString &selector, Dice &dice, Qt::MouseButton button)
{
    const std::optional<Element> element = OneOf(selector, dice);
    if (!element)
        return QString();
    QTest::mouseMove(Target(), element->place);
    QTest::mouseClick(Target(), button, {}, element->place);
    return element->name;
}

QString PageHand::HoverOneOf(const QString &selector, Dice &dice)
{
    const std::optional<Element> element = OneOf(selector, dice);
    if (!element)
        return QString();
    QTest::mouseMove(Target(), element->place);
    return element->name;
}

QPoint PageHand::AnyPlace(Dice &dice) const
{
    return {dice.Below(Target()->width()), dice.Below(Target()->height())};
}

} // namespace Tesk
