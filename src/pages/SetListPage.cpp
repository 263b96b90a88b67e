#include "core/ResultTable.h"
#include "pages/Changes.h"
#include "pages/HtmlBuilder.h"
#include "pages/Int16.h"
#include "pages/ListRow.h"
#include "pages/NumberField.h"
#include "pages/PageContext.h"

namespace Tesk {

namespace {

QString AmountCell(const ListRow &row)
{
    return QStringLiteral(R"(<td width="25" valign="top">%1 St.</td>)")
        .arg(row.Field(QStringLiteral("s.iAmount")));
}

/// The availability of a set's members does not count: whatever bears an id above 0 is in stock.
QString StockCell(const PageContext &context, const ResultTable &table, qint16 row)
{
    if (NumberOfField(table.Text(row, 0), table.Text(0, 0), table, row) > 0)
        return InStockCell(context);
    return NotInStockCell(context, QStringLiteral("img/blank.gif"));
}

QString RowHtml(const PageContext &context, const ResultTable &table, qint16 n)
{
    const ListRow row(context, table, n);
    return row.Start() + row.NumberCell() + row.NameCell() + row.SizeAndFormCells() +
           row.PreviewCell() + row.PreviewTriggerCell() + AmountCell(row) +
           StockCell(context, table, n) + QLatin1String("</tr>");
}

} // namespace

void HtmlBuilder::WriteSetList(HtmlDocument &browser, const QString &title,
                               const ResultTable &table, const CategoryNode *node) const
{
    browser.Apply({
        HtmlChange(QStringLiteral("printHeader"), BuildPrintHeader(node, {})),
        HtmlChange(QStringLiteral("printFooter"), BuildPrintFooter()),
        HtmlChange(QStringLiteral("productTitle"), title),
        HtmlChange(QStringLiteral("list"), SetListHtml(table)),
        VisibilityChange(QStringLiteral("imagesTable"), false),
    });
}

QString HtmlBuilder::SetListHtml(const ResultTable &table) const
{
    if (!table.HasData())
        return NoProductsHtml(*context);

    QString html = ListStart(*context) + SizeAndFormCaptions(*context) + CaptionsEnd();
    const int count = Int16(table.UpperRow());
    for (int n = 1; n <= count; ++n)
        html += RowHtml(*context, table, Int16(n));
    return html + QLatin1String("</table>");
}

} // namespace Tesk
