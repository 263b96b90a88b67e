#pragma once

#include "support/CatalogueWindow.h"

#include <QMessageBox>
#include <QString>

class QAction;
class QMenu;
class QWidget;

namespace Tesk {

// Answers to dialogs (CatalogueWindow::AnswerDialogs), given with mouse and keyboard.

/// Clicks a button of a message box. `text` and `title` take what the box says.
CatalogueWindow::DialogAnswer PressButton(QMessageBox::StandardButton which,
                                          QString *text = nullptr, QString *title = nullptr);
/// Types the path into the file dialog and confirms it.
CatalogueWindow::DialogAnswer ChooseFile(const QString &path);
/// Types the path into the print dialog as the file to print into, and prints.
CatalogueWindow::DialogAnswer PrintInto(const QString &path);
CatalogueWindow::DialogAnswer Cancel();

/// Clicks the dialog's button of this object name.
void ClickButton(QWidget *dialog, const char *name);
/// Types the text into the dialog's field of this object name, in place of what stands there.
void Fill(QWidget *dialog, const char *field, const QString &text);

/// Opens the menu of the window's bar and clicks the entry.
void ChooseFromMenu(CatalogueWindow &catalogue, QMenu *menu, QAction *entry);

} // namespace Tesk
