#pragma once

namespace Tesk {

/// Prepares the browser engine; must be called once, before the application object exists.
/// Registers the scheme `mk`, and gives the engine its switches unless the user set them. The
/// engine does not run for the superuser inside its sandbox: then the sandbox is left out and a
/// line on standard error says so; everybody else keeps it.
void ConfigureEngine();

} // namespace Tesk
