#include "support/UserActions.h"

#include "core/CategoryTree.h"
#include "support/CatalogueWindow.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/controls/ItemScroller.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace Tesk {

namespace {

QWindow *WindowOf(QWidget *control)
{
    return control->window()->windowHandle();
}

QPoint InWindow(QWidget *control, const QPoint &place)
{
    return control->mapTo(control->window(), place);
}

} // namespace

void MovePointerTo(QWidget *control)
{
    MovePointerTo(control, control->rect().center());
}

void MovePointerTo(QWidget *control, const QPoint &place)
{
    QTest::mouseMove(WindowOf(control), InWindow(control, place));
}

void ClickOn(QWidget *control)
{
    ClickOn(control, control->rect().center());
}

void ClickOn(QWidget *control, const QPoint &place)
{
    MovePointerTo(control, place);
    QTest::mouseClick(WindowOf(control), Qt::LeftButton, {}, InWindow(control, place));
}

void TurnWheel(QWidget *control, int notches)
{
    const QPoint place = control->rect().center();
    QWheelEvent event(InWindow(control, place), control->mapToGlobal(place), QPoint(),
                      QPoint(0, -notches * QWheelEvent::DefaultDeltasPerStep), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    // Events that do not come from outside would stay with the innermost control.
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::instance()->notify(WindowOf(control), &event);
}

bool TurnWheelTo(QWidget *area, QWidget *item)
{
    constexpr int most = 500;
    for (int notch = 0; notch < most && !IsWhollyVisible(item); ++notch) {
        const bool isBelow = item->mapTo(area, item->rect().bottomLeft()).y() >= area->height();
        TurnWheel(area, isBelow ? 1 : -1);
    }
    return IsWhollyVisible(item);
}

bool IsWhollyVisible(const QWidget *widget)
{
    return widget->visibleRegion().boundingRect() == widget->rect();
}

void PressKey(QWidget *control, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(WindowOf(control), key, modifiers);
}

void TypeInto(QLineEdit *field, const QString &text)
{
    ClickOn(field);
    // Qt Test types plain ASCII only, unless the key's text is given.
    const auto characters = text.toUcs4();
    for (const char32_t character : characters)
        QTest::sendKeyEvent(QTest::Click, WindowOf(field), Qt::Key_unknown,
                            QString::fromUcs4(&character, 1), Qt::NoModifier);
}

void ReplaceIn(QLineEdit *field, const QString &text)
{
    ClickOn(field);
    PressKey(field, Qt::Key_A, Qt::ControlModifier);
    PressKey(field, Qt::Key_Delete);
    if (text.isEmpty())
        return;
    QGuiApplication::clipboard()->setText(text);
    PressKey(field, Qt::Key_V, Qt::ControlModifier);
}

void ChooseEntry(QComboBox *list, int index)
{
    list->setFocus(Qt::TabFocusReason);
    PressKey(list, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        PressKey(list, Qt::Key_Down);
}

void ClickInTree(CatalogueWindow &catalogue, const CategoryNode *node)
{
    frmCatalog &window = catalogue.Window();
    const QTabBar *const tabs = window.tabMain->tabBar();
    ClickOn(window.tabMain->tabBar(), tabs->tabRect(frmCatalog::CategoriesTab).center());
    CategoryTreeView *const tree = window.TreeViewCategories;
    tree->ExpandNodePath(node->parent);
    tree->scrollToItem(tree->ItemOf(node));
    ClickOn(tree->viewport(), tree->visualItemRect(tree->ItemOf(node)).center());
}

void FastSearchFor(CatalogueWindow &catalogue, const QString &text, int type)
{
    const HeaderBand *const header = catalogue.Window().header;
    ChooseEntry(header->cbFastSearchType, type);
    TypeInto(header->tbFastSearchText, text);
    PressKey(header->tbFastSearchText, Qt::Key_Return);
}

QAbstractButton *ButtonOfScroller(CatalogueWindow &catalogue, const char *name)
{
    return catalogue.Window().scroller->findChild<QAbstractButton *>(QLatin1String(name));
}

} // namespace Tesk
