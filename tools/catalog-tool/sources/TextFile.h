#pragma once

#include <QString>
#include <QStringList>

class QDir;

namespace Tesk {

class Problems;

/// The lines of a source text without their line ends; element 0 is line 1. Sources are UTF-8 with
/// LF line ends and no byte-order mark: a file that is missing, unreadable or written otherwise is
/// a problem, and what can be read of it is returned nevertheless.
QStringList ReadSourceLines(const QDir &folder, const QString &file, Problems &problems);

/// Adds a problem for the text's first character that the 8-bit files of a catalogue cannot hold:
/// one outside Windows-1252, or a control character.
void CheckCodePage(const QString &text, const QString &file, int line, Problems &problems);

} // namespace Tesk
