#pragma once

#include <QString>

class QWidget;

namespace Tesk::FileDialog {

/// The longest path that a dialog returns, in characters. A longer one counts as cancelled.
inline constexpr int MaxPathLength = 127;

/// What Qt's dialog takes for a filter: a description and a pattern, parted by "|" or by a NUL.
/// "Text (*.txt)|*.txt" becomes "Text (*.txt)".
QString ToQtFilter(const QString &filter);

/// The chosen path with the system's separators; empty when cancelled or longer than MaxPathLength.
QString ShowOpenDialog(const QString &filter, quint32 flags, QWidget *owner);
/// `ignored` stands for an argument that has no effect. Asks before a file is replaced.
QString ShowSaveDialog(const QString &filter, quint32 ignored, QWidget *owner);

} // namespace Tesk::FileDialog
