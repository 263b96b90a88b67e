#include "MonkeyActions.h"

#include "Dice.h"
#include "MonkeySession.h"
#include "PageHand.h"

#include "support/PageUser.h"

#include <QTest>

namespace Tesk {

namespace {

const QString CartSymbols = QStringLiteral("a[href*='setStatusbar']");
const QString Clickable =
    QStringLiteral("a[href]:not([href*='setStatusbar']), [onclick], area, button");

PageHand HandOn(MonkeySession &session)
{
    session.OpenTab(WindowControls::ProductsTab);
    return PageHand(session.Page());
}

void ClickElement(MonkeySession &session, Dice &dice)
{
    session.findings.NoteFound(HandOn(session).ClickOneOf(Clickable, dice));
}

void ClickCartSymbol(MonkeySession &session, Dice &dice)
{
    session.findings.NoteFound(HandOn(session).ClickOneOf(CartSymbols, dice));
}

void Hover(MonkeySession &session, Dice &dice)
{
    session.findings.NoteFound(HandOn(session).HoverOneOf(QStringLiteral("td, img"), dice));
}

void ClickRight(MonkeySession &session, Dice &dice)
{
    PageHand hand = HandOn(session);
    session.findings.NoteFound(hand.ClickOneOf(QStringLiteral("td, p"), dice, Qt::RightButton));
}

void ClickAnywhere(MonkeySession &session, Dice &dice)
{
    const PageHand hand = HandOn(session);
    if (!hand.IsInSight())
        return;
    const QPoint place = hand.AnyPlace(dice);
    if (dice.OneIn(3))
        QTest::mouseDClick(hand.Target(), Qt::LeftButton, {}, place);
    else
        QTest::mouseClick(hand.Target(), Qt::LeftButton, {}, place);
}

void PressKeys(MonkeySession &session, Dice &dice)
{
    constexpr Qt::Key keys[]{Qt::Key_Tab,    Qt::Key_Tab,  Qt::Key_Down,  Qt::Key_PageDown,
                             Qt::Key_End,    Qt::Key_Home, Qt::Key_Space, Qt::Key_Return,
                             Qt::Key_Escape, Qt::Key_A};
    if (!HandOn(session).IsInSight())
        return;
    PageUser user(session.Page());
    for (int presses = dice.Between(1, 5); presses > 0; --presses)
        user.PressKey(dice.Pick(keys));
}

} // namespace

std::vector<MonkeyAction> ActionsOnPages()
{
    return {{"click an element of the page", 14, false, ClickElement},
            {"click a cart symbol", 14, false, ClickCartSymbol},
            {"move over the page", 2, false, Hover},
            {"click with the right button", 1, false, ClickRight},
            {"click anywhere in the page", 3, false, ClickAnywhere},
            {"press keys in the page", 3, false, PressKeys}};
}

} // namespace Tesk
