#pragma once

#include <QKeySequence>
#include <QString>

/// The window's keys, and how a tool tip names them.
namespace Tesk::ShortcutKeys {

inline const QKeySequence FastSearch{Qt::CTRL | Qt::Key_F};
inline const QKeySequence SecondFastSearch{Qt::Key_F3};
inline const QKeySequence Home{Qt::ALT | Qt::Key_Home};
inline const QKeySequence Back{Qt::ALT | Qt::Key_Left};
inline const QKeySequence Close{Qt::CTRL | Qt::Key_Q};
inline const QKeySequence PreviousProduct{Qt::ALT | Qt::Key_PageUp};
inline const QKeySequence NextProduct{Qt::ALT | Qt::Key_PageDown};

/// `position`: the tab's, from 0.
inline QKeySequence TabKey(int position)
{
    return QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + position));
}

/// What a control's tool tip says: its text, if it has one, and its key as the desktop spells it.
inline QString ToolTip(const QString &text, const QKeySequence &key)
{
    const QString keyText = key.toString(QKeySequence::NativeText);
    return text.isEmpty() ? keyText : QStringLiteral("%1 (%2)").arg(text, keyText);
}

} // namespace Tesk::ShortcutKeys
