#pragma once

#include <QString>

namespace Tesk {

class ResultTable;

/// The number that `text`, the value of `columnName` in `row`, stands for. Throws ConversionError,
/// with the product's id and the column's name in its message, for text that is no number.
double NumberOfField(const QString &text, const QString &columnName, const ResultTable &table,
                     int row);

} // namespace Tesk
