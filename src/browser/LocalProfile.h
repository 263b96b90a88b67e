#pragma once

#include <QString>

class QObject;
class QWebEngineProfile;

namespace Tesk {

/// The engine's profile for the catalogue's pages: keeps nothing on disk, reads resources from the
/// container and files below `allowedDirectory`, refuses everything else and every download.
/// `parent` must outlive all browsers on it.
QWebEngineProfile *CreateLocalProfile(const QString &containerPath, const QString &allowedDirectory,
                                      QObject *parent);

} // namespace Tesk
