#include "support/Dialogs.h"

#include "support/UserActions.h"
#include "ui/main/frmCatalog.h"

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>

namespace Tesk {

namespace {

void BringIntoSight(QWidget *field)
{
    for (QWidget *parent = field->parentWidget(); parent; parent = parent->parentWidget()) {
        auto *const area = qobject_cast<QScrollArea *>(parent);
        if (area != nullptr && !IsWhollyVisible(field))
            TurnWheelTo(area->viewport(), field);
    }
}

} // namespace

CatalogueWindow::DialogAnswer PressButton(QMessageBox::StandardButton which, QString *text,
                                          QString *title)
{
    return [=](QWidget *dialog) {
        auto *const box = qobject_cast<QMessageBox *>(dialog);
        if (box == nullptr || box->button(which) == nullptr) {
            QTest::qFail("a message box with that button was expected", __FILE__, __LINE__);
            dialog->close();
            return;
        }
        if (text != nullptr)
            *text = box->text();
        if (title != nullptr)
            *title = box->windowTitle();
        ClickOn(box->button(which));
    };
}

CatalogueWindow::DialogAnswer ChooseFile(const QString &path)
{
    return [=](QWidget *dialog) {
        Fill(dialog, "fileNameEdit", path);
        PressKey(dialog, Qt::Key_Return);
    };
}

CatalogueWindow::DialogAnswer PrintInto(const QString &path)
{
    return [=](QWidget *dialog) {
        Fill(dialog, "filename", path);
        ClickOn(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok));
    };
}

CatalogueWindow::DialogAnswer Cancel()
{
    return [](QWidget *dialog) { PressKey(dialog, Qt::Key_Escape); };
}

void ClickButton(QWidget *dialog, const char *name)
{
    auto *const button = dialog->findChild<QAbstractButton *>(QLatin1String(name));
    if (button == nullptr)
        qFatal("the dialog has no button %s", name);
    BringIntoSight(button);
    // The boxes and options stand at the left of their captions.
    ClickOn(button, QPoint(button->height() / 2, button->height() / 2));
}

void Fill(QWidget *dialog, const char *field, const QString &text)
{
    auto *const control = dialog->findChild<QWidget *>(QLatin1String(field));
    if (control == nullptr)
        qFatal("the dialog has no field %s", field);
    BringIntoSight(control);
    ClickOn(control);
    PressKey(control, Qt::Key_A, Qt::ControlModifier);
    PressKey(control, Qt::Key_Delete);
    QGuiApplication::clipboard()->setText(text);
    PressKey(control, Qt::Key_V, Qt::ControlModifier);
}

void ChooseFromMenu(CatalogueWindow &catalogue, QMenu *menu, QAction *entry)
{
    QMenuBar *const bar = catalogue.Window().menuBar();
    ClickOn(bar, bar->actionGeometry(menu->menuAction()).center());
    ClickOn(menu, menu->actionGeometry(entry).center());
}

} // namespace Tesk
