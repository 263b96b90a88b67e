#include "MonkeyActions.h"

#include "Dice.h"
#include "MonkeySession.h"
#include "PageHand.h"
#include "RandomTexts.h"

#include "browser/WebBrowser.h"
#include "support/UserActions.h"
#include "ui/main/HeaderBand.h"

#include <QPushButton>

namespace Tesk {

namespace {

const char *const Commands[]{"btnSave",        "btnLoad",      "btnManual", "btnPrint",
                             "btnSendRequest", "btnSendOrder", "btnDelete"};

/// At rest, with the cart and not the order form.
bool OpenCart(MonkeySession &session)
{
    session.OpenTab(WindowControls::CartTab);
    session.Rest();
    return session.CartPage().Address().contains(QLatin1String("shopping_cart.html"));
}

QString OneId(MonkeySession &session, const char *cssClass, Dice &dice)
{
    const QStringList ids =
        session.cart.Page()
            .Evaluate(QStringLiteral("[...document.querySelectorAll('#list input.%1')]"
                                     ".map(field => field.id)")
                          .arg(QLatin1String(cssClass)))
            .toStringList();
    const int number = dice.Below(INT_MAX);
    return ids.isEmpty() ? QString() : ids[number % ids.size()];
}

/// Types into the field; the result is false when it holds that text already.
bool Type(MonkeySession &session, const QString &id, const QString &text)
{
    session.findings.Note(text);
    const QString before =
        session.cart.Page()
            .Evaluate(QStringLiteral("document.getElementById('%1').value").arg(id))
            .toString();
    if (!session.cart.Page().TypeInto(u'#' + id, text))
        session.findings.Fail(QStringLiteral("the field takes no text"));
    return before != text;
}

/// Goes on with something else: the field reports what was typed when it is left.
void LeaveField(MonkeySession &session, Dice &dice)
{
    const HeaderBand &header = *session.Window().header;
    switch (dice.Below(7)) {
    case 0:
        session.cart.Page().PressKey(Qt::Key_Return);
        break;
    case 1:
        session.findings.Note(
            PageHand(session.CartPage()).ClickOneOf(QStringLiteral("#list .prodCaption"), dice));
        break;
    case 2: {
        const char *const command = dice.Pick(Commands);
        session.findings.Note(QLatin1String(command));
        session.cart.Press(command);
        break;
    }
    case 3:
        ClickOn(header.btnLang[static_cast<size_t>(dice.Below(HeaderBand::LanguageCount))]);
        break;
    case 4:
        session.OpenTab(dice.OneIn(2) ? WindowControls::ProductsTab : WindowControls::SearchTab);
        break;
    default:
        session.cart.Page().PressKey(Qt::Key_Tab);
    }
}

void EditAmount(MonkeySession &session, Dice &dice)
{
    if (!OpenCart(session))
        return;
    const QString id = OneId(session, "amountField", dice);
    const RandomTexts::Amount &amount = RandomTexts::AnyAmount(dice);
    session.findings.NoteFound(id);
    if (id.isEmpty())
        return;
    if (Type(session, id, amount.text))
        session.model.SetAmount(id.section(u'_', 1), amount.inCartPage);
    LeaveField(session, dice);
}

void EditCategory(MonkeySession &session, Dice &dice)
{
    if (!OpenCart(session))
        return;
    const QString id = OneId(session, "catField", dice);
    const QString text = RandomTexts::OfKeys(dice);
    session.findings.NoteFound(id);
    if (id.isEmpty())
        return;
    if (Type(session, id, text))
        session.model.SetCategory(id.section(u'_', 1), text);
    LeaveField(session, dice);
}

void DeleteLine(MonkeySession &session, Dice &dice)
{
    if (!OpenCart(session))
        return;
    session.findings.NoteFound(
        PageHand(session.CartPage()).ClickOneOf(QStringLiteral("a[href*='delItem']"), dice));
}

void OpenProduct(MonkeySession &session, Dice &dice)
{
    if (!OpenCart(session))
        return;
    session.findings.NoteFound(
        PageHand(session.CartPage()).ClickOneOf(QStringLiteral("#list td[onclick]"), dice));
}

/// What presses one of the pane's buttons, from wherever the user is.
auto Press(const char *button)
{
    return [button](MonkeySession &session, Dice &dice) {
        session.OpenTab(WindowControls::CartTab);
        session.cart.Press(button);
        if (dice.OneIn(4))
            session.cart.Press(button);
    };
}

} // namespace

std::vector<MonkeyAction> ActionsInTheCart()
{
    return {{"edit an amount", 8, true, EditAmount},
            {"edit a category", 8, true, EditCategory},
            {"delete a line", 7, true, DeleteLine},
            {"open a product of the cart", 2, true, OpenProduct},
            {"add articles", 6, false, Press("btnManual")},
            {"save the cart", 4, false, Press("btnSave")},
            {"load a cart", 4, false, Press("btnLoad")},
            {"begin a new cart", 1, false, Press("btnDelete")},
            {"send a request", 2, false, Press("btnSendRequest")},
            {"send an order", 2, false, Press("btnSendOrder")},
            {"print the cart", 1, false, Press("btnPrint")}};
}

} // namespace Tesk
