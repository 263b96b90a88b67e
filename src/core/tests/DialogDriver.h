#pragma once

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <vector>

namespace Tesk {

/// Runs one action a dialog that appears, in their order. Dialogs behind them stay open for the
/// test, unless it has failed and nobody will answer them.
class DialogDriver final : public QObject
{
public:
    using Action = std::function<void(QDialog &)>;

    explicit DialogDriver(std::vector<Action> actionList)
        : actions(std::move(actionList))
    {
        qApp->installEventFilter(this);
    }

    bool IsDone() const { return next == actions.size(); }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *const dialog = qobject_cast<QDialog *>(object);
        // Queued behind the show, when the dialog runs its own event loop.
        if (event->type() == QEvent::Show && dialog)
            QMetaObject::invokeMethod(
                dialog, [this, dialog] { Act(*dialog); }, Qt::QueuedConnection);
        return false;
    }

private:
    void Act(QDialog &dialog)
    {
        if (!IsDone())
            actions[next++](dialog);
        else if (QTest::currentTestFailed())
            dialog.reject();
    }

    std::vector<Action> actions;
    size_t next = 0;
};

/// Types a path into the file dialog and confirms it.
inline DialogDriver::Action Choose(const QString &path)
{
    return [path](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    };
}

inline DialogDriver::Action Answer(QMessageBox::StandardButton button)
{
    return [button](QDialog &dialog) {
        qobject_cast<QMessageBox *>(&dialog)->button(button)->click();
    };
}

inline void Cancel(QDialog &dialog)
{
    dialog.reject();
}

/// A dialog that must not open: fails the test, and leaves nothing open that would hold it up.
inline DialogDriver::Action Unexpected(const char *what)
{
    return [what](QDialog &dialog) {
        dialog.reject();
        QTest::qFail(what, __FILE__, __LINE__);
    };
}

} // namespace Tesk
