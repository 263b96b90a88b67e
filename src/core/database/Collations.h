#pragma once

#include <string_view>

struct sqlite3;

namespace Tesk::Database {

// The two ways in which a version 2 database compares the texts of a column, as collations of
// SQLite 3. Texts are UTF-8 that came from the code page.

inline constexpr const char *NumericCollation = "tesk_numeric";
inline constexpr const char *TextCollation = "tesk_text";

/// Two numbers by value, a number before any other text, two other texts as CompareText.
int CompareNumeric(std::string_view left, std::string_view right);

/// In the order of the code page's bytes.
int CompareText(std::string_view left, std::string_view right);

void RegisterCollations(sqlite3 *connection);

} // namespace Tesk::Database
