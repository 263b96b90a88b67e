#pragma once

namespace Tesk {

/// Prepares the browser engine; must be called once, before the application object exists.
/// - Registers the scheme `mk`.
/// - Adds switches to QTWEBENGINE_CHROMIUM_FLAGS, each unless the user set it there: they keep the
///   engine off the network below the gate (RequestGate.h), and all pages in one process.
/// - As root the engine runs only without its sandbox: leaves it out and says so on standard
///   error, unless QTWEBENGINE_DISABLE_SANDBOX is set already. Everybody else keeps it.
void ConfigureEngine();

} // namespace Tesk
