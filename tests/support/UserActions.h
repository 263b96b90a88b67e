#pragma once

#include <QPoint>
#include <QString>

class QAbstractButton;
class QComboBox;
class QLineEdit;
class QWidget;

namespace Tesk {

class CategoryNode;
class CatalogueWindow;

// What a person does with mouse and keyboard. The events go to the window, as those of the desktop
// do: a control that is hidden, covered or scrolled away does not get them.

void MovePointerTo(QWidget *control);
void MovePointerTo(QWidget *control, const QPoint &place);
/// Clicks the middle of the control.
void ClickOn(QWidget *control);
void ClickOn(QWidget *control, const QPoint &place);
/// Turns the wheel over the control's middle, towards the user for positive notches.
void TurnWheel(QWidget *control, int notches);
/// Turns the wheel over the area until all of the item in it can be seen. False when it stays out
/// of sight.
bool TurnWheelTo(QWidget *area, QWidget *item);
bool IsWhollyVisible(const QWidget *widget);

/// Presses a key in the control's window, where the focus is.
void PressKey(QWidget *control, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Clicks into the field and types, letters of any script included.
void TypeInto(QLineEdit *field, const QString &text);
/// Clicks into the field and puts the text in place of what stands there, from the clipboard.
void ReplaceIn(QLineEdit *field, const QString &text);
/// Chooses an entry with the arrow keys.
void ChooseEntry(QComboBox *list, int index);

/// Opens the category from the tree of the tab with the categories.
void ClickInTree(CatalogueWindow &catalogue, const CategoryNode *node);
/// Types the text into the fast search and presses Enter; `type` is the entry of its list.
void FastSearchFor(CatalogueWindow &catalogue, const QString &text, int type = 0);
/// A button of the item scroller: "btnFirst", "btnPrevious", "btnNext", "btnLast" or "btnBack".
QAbstractButton *ButtonOfScroller(CatalogueWindow &catalogue, const char *name);

} // namespace Tesk
