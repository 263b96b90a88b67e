#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Sqlite2 {

/// The name of the journal that belongs to a database file.
std::filesystem::path JournalName(std::filesystem::path databaseName);

/// The whole file. Throws Error when it is no regular file or cannot be read.
std::string ReadFile(const std::filesystem::path &fileName);

/// The file's first bytes, fewer when it is shorter; nothing when it cannot be read.
std::string ReadFileBeginning(const std::filesystem::path &fileName, std::size_t size);

/// Writes the file whole through a temporary file beside it, so that a failure leaves an older one
/// as it was. Throws Error when it cannot.
void ReplaceFile(const std::filesystem::path &fileName, std::string_view bytes);

} // namespace Sqlite2
