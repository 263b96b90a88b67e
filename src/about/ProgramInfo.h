#pragma once

#include <QString>

/// The program's version information, apart from its version, which is the catalogue's and stands
/// in the file "version" beside the program.
namespace Tesk::ProgramInfo {

inline const QString Title = QStringLiteral("Tesk Instruments Catalog");
inline const QString LegalNotice = QStringLiteral("Copyright © Tesk Instruments GmbH");
inline const QString Comments =
    QStringLiteral("Product catalogue with shopping cart, for use without a network.");

} // namespace Tesk::ProgramInfo
