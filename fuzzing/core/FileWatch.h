#pragma once

namespace Tesk::Fuzzing {

/// Ends the program, from now on, when SQLite opens a file by a name, asks for one or deletes one.
/// What is open stays open; files without a name, in which SQLite sorts, are its own. Watches the
/// connections that are opened after the first call of WatchFiles.
void WatchFiles();
void ForbidFiles();

} // namespace Tesk::Fuzzing
