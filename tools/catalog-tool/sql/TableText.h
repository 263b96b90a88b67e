#pragma once

#include <QString>

namespace Tesk {

class ResultTable;

/// The table for a reader: the names, a rule, a line for each row, columns aligned, NULL as "NULL",
/// line breaks and tabs as "\n", "\r" and "\t". Empty for the empty table.
QString AlignedText(const ResultTable &table);

/// The table as one JSON array of rows, the names first and NULL as null, one row a line; "[]" for
/// the empty table.
QString JsonText(const ResultTable &table);

} // namespace Tesk
