#include "pages/HtmlBuilder.h"

#include "core/ResultTable.h"
#include "pages/Int16.h"
#include "pages/PageContext.h"

#include <utility>

namespace Tesk {

HtmlBuilder::HtmlBuilder(std::unique_ptr<const PageContext> pageContext,
                         std::function<QDate()> currentDate)
    : context(std::move(pageContext))
    , today(std::move(currentDate))
{}

HtmlBuilder::~HtmlBuilder() = default;

qint16 FindRowById(const ResultTable &table, const QString &key)
{
    for (int row = 1; row <= table.UpperRow(); ++row) {
        if (table.Text(row, 0) == key)
            return Int16(row);
    }
    return 0;
}

} // namespace Tesk
