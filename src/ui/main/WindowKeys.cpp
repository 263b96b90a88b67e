#include "ui/main/WindowKeys.h"

#include "ui/main/controls/ShortcutKeys.h"

#include <QApplication>
#include <QMouseEvent>
#include <QShortcut>
#include <QWidget>

namespace Tesk {

namespace {

constexpr int TabCount = 4;

} // namespace

WindowKeys::WindowKeys(QWidget *window)
    : QObject(window)
    , window(window)
{
    for (int position = 0; position < TabCount; ++position) {
        auto *const shortcut = new QShortcut(ShortcutKeys::TabKey(position), window);
        connect(shortcut, &QShortcut::activated, this,
                [this, position] { Q_EMIT ShowTab(position); });
    }
    // Closing asks and can be called off, which the menu's entry cannot.
    connect(new QShortcut(ShortcutKeys::Close, window), &QShortcut::activated, window,
            &QWidget::close);
    // The browser's inner widget takes the mouse first, and would step back in a history of its
    // own.
    qApp->installEventFilter(this);
}

bool WindowKeys::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        break;
    default:
        return false;
    }
    const auto *const mouse = static_cast<QMouseEvent *>(event);
    const auto *const widget = qobject_cast<QWidget *>(watched);
    if (mouse->button() != Qt::BackButton || widget == nullptr || widget->window() != window)
        return false;
    if (event->type() != QEvent::MouseButtonRelease)
        Q_EMIT Back();
    return true;
}

} // namespace Tesk
