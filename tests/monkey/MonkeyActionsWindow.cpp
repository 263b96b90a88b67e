#include "MonkeyActions.h"

#include "Dice.h"
#include "MonkeySession.h"

#include "browser/WebBrowser.h"
#include "support/Dialogs.h"
#include "support/UserActions.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/LogoButton.h"
#include "ui/main/MainMenu.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/NavEntry.h"
#include "ui/main/controls/NavLeft.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QWebEngineView>
#include <QWheelEvent>

#include <utility>

namespace Tesk {

namespace {

constexpr QSize LargestWindow{1600, 1000}; // pixels

struct KeyPress
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

void ShowTab(MonkeySession &session, Dice &dice)
{
    QTabBar *const tabs = session.Window().tabMain->tabBar();
    ClickOn(tabs, tabs->tabRect(dice.Below(tabs->count())).center());
}

void ClickInTheTree(MonkeySession &session, Dice &dice)
{
    const auto &node = dice.Pick(session.Window().Tree().Nodes());
    session.findings.Note(node->FullPath());
    ClickInTree(session.catalogue, node.get());
}

void WalkInTheTree(MonkeySession &session, Dice &dice)
{
    constexpr Qt::Key keys[]{Qt::Key_Down, Qt::Key_Down, Qt::Key_Up,     Qt::Key_Right,
                             Qt::Key_Left, Qt::Key_End,  Qt::Key_Return, Qt::Key_Space};
    frmCatalog &window = session.Window();
    PressKey(&window, Qt::Key_2, Qt::ControlModifier);
    for (int presses = dice.Between(1, 6); presses > 0; --presses) {
        if (!window.TreeViewCategories->hasFocus())
            return;
        PressKey(&window, dice.Pick(keys));
    }
}

void ClickLeftMenu(MonkeySession &session, Dice &dice)
{
    const auto entries = session.Window().ucNavLeft->findChildren<NavEntry *>();
    if (entries.isEmpty())
        return;
    NavEntry *const entry = dice.Pick(entries);
    session.findings.Note(entry->Caption());
    if (IsWhollyVisible(entry))
        ClickOn(entry);
}

void ClickCrumb(MonkeySession &session, Dice &dice)
{
    QList<QAbstractButton *> crumbs;
    for (QAbstractButton *crumb :
         session.Window().ucBreadcrumb->findChildren<QAbstractButton *>()) {
        if (crumb->isVisible())
            crumbs.append(crumb);
    }
    if (!crumbs.isEmpty())
        ClickOn(dice.Pick(crumbs));
}

void StepOn(MonkeySession &session, Dice &dice)
{
    const char *const names[]{"btnFirst", "btnPrevious", "btnNext", "btnNext",
                              "btnLast",  "btnBack",     "btnBack"};
    const char *const name = dice.Pick(names);
    session.findings.Note(QLatin1String(name));
    ClickOn(ButtonOfScroller(session.catalogue, name));
}

void ChooseLanguage(MonkeySession &session, Dice &dice)
{
    const auto language = static_cast<size_t>(dice.Below(HeaderBand::LanguageCount));
    const MainMenu &menus = *session.Window().menus;
    if (dice.OneIn(3))
        ChooseFromMenu(session.catalogue, menus.mLanguage, menus.mLanguageSelect[language]);
    else
        ClickOn(session.Window().header->btnLang[language]);
}

void ChooseUnit(MonkeySession &session, Dice &dice)
{
    ChooseEntry(session.Window().header->cbUnitSelection, dice.Below(2));
}

void GoHome(MonkeySession &session, Dice &dice)
{
    const HeaderBand &header = *session.Window().header;
    if (dice.OneIn(2))
        ClickOn(header.btnInfo);
    else
        ClickOn(header.imgLogo);
}

void PressKeyOfTheWindow(MonkeySession &session, Dice &dice)
{
    constexpr auto none = Qt::NoModifier;
    constexpr auto control = Qt::ControlModifier;
    constexpr auto alt = Qt::AltModifier;
    static const KeyPress keys[]{
        {Qt::Key_F, control},     {Qt::Key_F3, none},      {Qt::Key_Left, alt},
        {Qt::Key_PageUp, alt},    {Qt::Key_PageDown, alt}, {Qt::Key_1, control},
        {Qt::Key_2, control},     {Qt::Key_3, control},    {Qt::Key_4, control},
        {Qt::Key_Home, alt},      {Qt::Key_Plus, control}, {Qt::Key_Minus, control},
        {Qt::Key_0, control},     {Qt::Key_P, control},    {Qt::Key_Q, control},
        {Qt::Key_Tab, none},      {Qt::Key_Backtab, none}, {Qt::Key_Down, none},
        {Qt::Key_PageDown, none}, {Qt::Key_End, none},     {Qt::Key_Escape, none}};
    for (int presses = dice.Between(1, 3); presses > 0; --presses) {
        const KeyPress &press = dice.Pick(keys);
        session.findings.Note(QKeySequence(QKeyCombination(press.modifiers, press.key)).toString());
        PressKey(&session.Window(), press.key, press.modifiers);
    }
}

void PressBackButtonOfTheMouse(MonkeySession &session, Dice &dice)
{
    QWidget *const places[]{session.Window().header, session.Window().tabMain,
                            session.Page().View()->focusProxy()};
    QTest::mouseClick(dice.Pick(places), Qt::BackButton);
}

void TurnTheWheel(MonkeySession &session, Dice &dice)
{
    QWidget *const widget = dice.OneIn(2) ? session.Page().View()->focusProxy()
                                          : session.CartPage().View()->focusProxy();
    const QPointF place = widget->rect().center();
    const Qt::KeyboardModifiers modifiers = dice.OneIn(3) ? Qt::ControlModifier : Qt::NoModifier;
    QWheelEvent event(place, widget->mapToGlobal(place), QPoint(),
                      QPoint(0, dice.OneIn(2) ? 120 : -120), Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    if (widget->isVisible())
        QCoreApplication::sendEvent(widget, &event);
}

void ResizeTheWindow(MonkeySession &session, Dice &dice)
{
    const QSize least = session.Window().minimumSize();
    session.Window().resize(dice.Between(least.width(), LargestWindow.width()),
                            dice.Between(least.height(), LargestWindow.height()));
}

void ChooseMenuEntry(MonkeySession &session, Dice &dice)
{
    const MainMenu &menus = *session.Window().menus;
    const std::pair<QMenu *, QAction *> entries[]{{menus.mFile, menus.mLoadPriceList},
                                                  {menus.mFile, menus.mLoadPriceList},
                                                  {menus.mFile, menus.mPrint},
                                                  {menus.mExtra, menus.mSettings},
                                                  {menus.mExtra, menus.mContact},
                                                  {menus.mExtra, menus.mContact},
                                                  {menus.mExtra, menus.mBack},
                                                  {menus.mExtra, menus.mHome},
                                                  {menus.mExtra, menus.mPreviousProduct},
                                                  {menus.mExtra, menus.mNextProduct},
                                                  {menus.mExtra, menus.mFastSearch},
                                                  {menus.mExtra, menus.mZoomIn},
                                                  {menus.mExtra, menus.mZoomOut},
                                                  {menus.mExtra, menus.mZoomReset},
                                                  {menus.mHelp, menus.mInfo},
                                                  {menus.mHelp, menus.mInfo}};
    const auto &[menu, entry] = dice.Pick(entries);
    session.findings.Note(entry->text());
    ChooseFromMenu(session.catalogue, menu, entry);
}

/// Opens it and leaves it to whatever comes next.
void OpenMenu(MonkeySession &session, Dice &dice)
{
    const MainMenu &menus = *session.Window().menus;
    QMenu *const all[]{menus.mFile, menus.mLanguage, menus.mExtra, menus.mHelp};
    QMenuBar *const bar = session.Window().menuBar();
    ClickOn(bar, bar->actionGeometry(dice.Pick(all)->menuAction()).center());
}

void CloseTheWindow(MonkeySession &session, Dice &)
{
    session.Window().close();
    if (!session.Window().isVisible())
        session.findings.Fail(QStringLiteral("the window closed without the user's consent"));
}

} // namespace

std::vector<MonkeyAction> ActionsInTheWindow()
{
    return {{"show a tab", 6, false, ShowTab},
            {"open a category in the tree", 8, false, ClickInTheTree},
            {"walk in the tree by keys", 3, false, WalkInTheTree},
            {"open an entry of the left menu", 6, false, ClickLeftMenu},
            {"open a breadcrumb", 4, false, ClickCrumb},
            {"press a button of the scroller", 10, false, StepOn},
            {"choose a language", 3, false, ChooseLanguage},
            {"choose a unit", 2, false, ChooseUnit},
            {"go home", 2, false, GoHome},
            {"press keys", 10, false, PressKeyOfTheWindow},
            {"press the mouse's back button", 2, false, PressBackButtonOfTheMouse},
            {"turn the wheel", 4, false, TurnTheWheel},
            {"resize the window", 2, false, ResizeTheWindow},
            {"choose an entry of a menu", 8, false, ChooseMenuEntry},
            {"open a menu", 1, false, OpenMenu},
            {"close the window", 1, false, CloseTheWindow}};
}

} // namespace Tesk
