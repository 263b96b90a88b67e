#include "pages/NumberField.h"

#include "base/Errors.h"
#include "base/Numbers.h"
#include "core/ResultTable.h"

namespace Tesk {

double NumberOfField(const QString &text, const QString &columnName, const ResultTable &table,
                     int row)
{
    try {
        return ToDouble(text);
    } catch (const ConversionError &) {
        throw ConversionError(
            QStringLiteral("The catalogue holds \"%1\" instead of a number in the column %2 of the "
                           "product %3. Please ask for a corrected catalogue.")
                .arg(text, columnName, table.Text(row, 0)));
    }
}

} // namespace Tesk
