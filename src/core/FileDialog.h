#pragma once

#include <QString>

class QWidget;

namespace Tesk::FileDialog {

/// The longest path that a dialog returns, in characters. A longer one counts as cancelled and
/// leaves a line in the logging category "tesk.files".
inline constexpr int MaxPathLength = 127;

/// The file must exist; without it the open dialog takes any name.
inline constexpr quint32 FileMustExist = 0x1000;
/// The folder must exist, as it must in every dialog here.
inline constexpr quint32 PathMustExist = 0x800;

/// What Qt's dialog takes for a filter: descriptions and patterns in turn, each parted from the
/// next by "|" or by a NUL. "Text (*.txt)|*.txt" becomes "Text (*.txt)"; several patterns of one
/// description are parted by ";".
QString ToQtFilter(const QString &filter);

/// The chosen path with the system's separators; empty when cancelled or longer than MaxPathLength.
/// A name in a folder that does not exist is not taken: the user is told, and the dialog returns.
QString ShowOpenDialog(const QString &filter, quint32 flags, QWidget *owner);
/// `ignored` stands for an argument that has no effect. A name that lacks the `ending` (".csv", in
/// whatever case) gets it behind the length limit's check. Asks before a file is replaced: the one
/// of the name that is returned, no other.
QString ShowSaveDialog(const QString &filter, quint32 ignored, QWidget *owner,
                       const QString &ending = QString());

} // namespace Tesk::FileDialog
