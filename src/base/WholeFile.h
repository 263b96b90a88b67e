#pragma once

#include <QByteArrayView>
#include <QList>
#include <QString>

namespace Tesk::WholeFile {

/// Makes a file of these bytes, one part behind the other, in place of an older one of this name:
/// whatever fails, and wherever the program or the system stops, the name stands for the whole old
/// file or the whole new one. False when it cannot be done; `reason` then says why in the system's
/// words.
[[nodiscard]] bool Replace(const QString &fileName, const QList<QByteArrayView> &parts,
                           QString *reason);

/// Removes what programs that ended in the middle of Replace left beside the file: only in folders
/// that are the program's own, for a leftover is known by its name alone. Young ones stay, which
/// another program may be writing.
void RemoveLeftovers(const QString &fileName);

} // namespace Tesk::WholeFile
