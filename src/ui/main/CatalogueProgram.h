#pragma once

#include <QString>

namespace Tesk {

/// Runs the program, with the main window and the event loop, until the user ends it. Needs the
/// application object and ConfigureEngine() before it.
///
/// `applicationDirectory` holds the catalogue's files, `settingsFile` is the one of Registry,
/// `cacheFolder` keeps version 2 databases that were opened once.
///
/// The result is the exit status. When the program cannot run, an error stands on the terminal and
/// in a message box, and the result is EXIT_FAILURE.
int RunCatalogue(const QString &applicationDirectory, const QString &settingsFile,
                 const QString &cacheFolder);

} // namespace Tesk
