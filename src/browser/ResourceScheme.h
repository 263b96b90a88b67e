#pragma once

#include <QObject>
#include <QString>

class QWebEngineProfile;

namespace Tesk::ResourceScheme {

/// Makes the scheme `mk` known to the engine. Must be called before the application object exists.
void Register();

/// Answers `mk:@MSITStore:<container>::<member>` on this profile from the compiled help file. Only
/// `containerPath` is ever opened, whatever container an address names.
void Install(QWebEngineProfile *profile, const QString &containerPath);

} // namespace Tesk::ResourceScheme
