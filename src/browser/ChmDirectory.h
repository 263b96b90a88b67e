#pragma once

#include <QHash>
#include <QString>

class QFile;

namespace Tesk {

/// Where a compiled help file keeps one of its members.
struct ChmMember
{
    quint64 start = 0;
    quint64 length = 0;
    /// 0 for the plain section, 1 for the compressed one.
    int space = 0;
};

using ChmDirectory = QHash<QString, ChmMember>;

/// The members by their case-folded paths, the file's own ones included (their paths begin with
/// `::`). CHMLib takes the numbers of a file's header and directory on trust: it divides by them
/// and follows them in circles. So everything that it relies on is checked here, and a file that
/// passes can be opened with it. Throws FileError for a file that is damaged or no compiled help
/// file.
ChmDirectory ReadChmDirectory(QFile &file);

} // namespace Tesk
