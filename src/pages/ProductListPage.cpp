#include "core/ResultTable.h"
#include "pages/Changes.h"
#include "pages/HtmlBuilder.h"
#include "pages/Int16.h"
#include "pages/ListRow.h"
#include "pages/NumberField.h"
#include "pages/PageContext.h"

namespace Tesk {

namespace {

QString PriceCaption(const PageContext &context)
{
    return QStringLiteral(R"(<td width="50" class="prodCaption" align="right">%1</td>)")
        .arg(context.GetText(QStringLiteral("productListCaptionPrice")));
}

QString PriceCell(const PageContext &context, const ListRow &row)
{
    return QStringLiteral(R"(<td class="prodItem" valign="top" align="right">%1</td>)")
        .arg(context.GetPrice(row.Field(QStringLiteral("p.artNr"))));
}

QString AvailabilityCell(const PageContext &context, const ResultTable &table, qint16 row)
{
    const QString column = QStringLiteral("p.availability");
    if (NumberOfField(GetField(column, table, row), column, table, row) > 0)
        return InStockCell(context);
    return NotInStockCell(context, QStringLiteral("img/contIconNichtAbLager.gif"));
}

/// In a category that holds single products, a set's row has fewer cells, and prices are left out.
QString RowHtml(const PageContext &context, const ResultTable &table, qint16 n,
                bool hasSingleProducts)
{
    const ListRow row(context, table, n);
    const bool hasAllCells = !row.IsSet() || !hasSingleProducts;

    QString html = row.Start() + row.NumberCell() + row.NameCell();
    if (hasAllCells)
        html += row.SizeAndFormCells();
    if (context.HasPriceList() && !hasSingleProducts)
        html += PriceCell(context, row);
    html += row.PreviewCell();
    if (hasAllCells)
        html += row.PreviewTriggerCell();
    html += AddToCartCell(context, row.Field(QStringLiteral("p.ID")));
    html += AvailabilityCell(context, table, n);
    return html + QLatin1String("</tr>");
}

qint16 LastRowOfPage(qint16 firstItem, qint16 count)
{
    if (Int16(firstItem + HtmlBuilder::ProductsPerPage) > count)
        return count;
    return Int16(firstItem + HtmlBuilder::ProductsPerPage - 1);
}

} // namespace

void HtmlBuilder::WriteProductList(HtmlDocument &browser, const QString &caption,
                                   const ResultTable &table, qint16 firstItem,
                                   const QString &categoryId, bool hasSingleProducts,
                                   const CategoryNode *node) const
{
    browser.Apply({
        HtmlChange(QStringLiteral("printHeader"), BuildPrintHeader(node, {})),
        HtmlChange(QStringLiteral("printFooter"), BuildPrintFooter()),
        HtmlChange(QStringLiteral("caption"), caption),
        HtmlChange(QStringLiteral("list"),
                   ProductListHtml(table, firstItem, categoryId, hasSingleProducts)),
    });
}

QString HtmlBuilder::ProductListHtml(const ResultTable &table, qint16 firstItem,
                                     const QString &categoryId, bool hasSingleProducts) const
{
    if (!table.HasData())
        return NoProductsHtml(*context);

    const qint16 count = Int16(table.UpperRow());
    QString html;
    if (count > ProductsPerPage) {
        html +=
            BuildPager(firstItem, count,
                       context->GetContentBaseUrl() + QLatin1String("/content/product_list.html"),
                       QStringLiteral("firstItem"), QLatin1String("&id=") + categoryId);
        html += QLatin1String("<br>");
    }

    html += ListStart(*context);
    if (!hasSingleProducts)
        html += SizeAndFormCaptions(*context);
    if (context->HasPriceList() && !hasSingleProducts)
        html += PriceCaption(*context);
    html += CaptionsEnd();

    QString lastGroup = QStringLiteral("-1");
    const int lastRow = LastRowOfPage(firstItem, count);
    for (int n = firstItem; n <= lastRow; ++n) {
        const QString group = GetField(QStringLiteral("p.groupId"), table, n);
        if (group != lastGroup) {
            lastGroup = group;
            html += QLatin1String("<tr><td>&nbsp;</td></tr>");
        }
        html += RowHtml(*context, table, Int16(n), hasSingleProducts);
    }
    return html + QLatin1String("</table>");
}

} // namespace Tesk
