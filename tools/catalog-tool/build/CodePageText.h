#pragma once

#include <QByteArray>
#include <QStringList>

namespace Tesk {

/// The lines as a text file of the program: 8-bit, each line ended by CR LF.
QByteArray CodePageText(const QStringList &lines);

} // namespace Tesk
