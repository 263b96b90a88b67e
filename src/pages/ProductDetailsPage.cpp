#include "base/Numbers.h"
#include "core/ResultTable.h"
#include "pages/Changes.h"
#include "pages/HtmlBuilder.h"
#include "pages/ListRow.h"
#include "pages/NumberField.h"
#include "pages/PageContext.h"

namespace Tesk {

namespace {

constexpr int ProductRow = 1;

QString ProductField(const QString &columnName, const ResultTable &table)
{
    return GetField(columnName, table, ProductRow);
}

QString NarrowCell(const QString &text)
{
    return QStringLiteral(R"(<td width="50" class="prodItem" valign="top">%1</td>)").arg(text);
}

QString IconLinkCell(const QString &address, const QString &picture)
{
    return QStringLiteral(R"(<td width="25" valign="top"><a href="%1">)"
                          R"(<img src="img/%2" border="0"></a></td>)")
        .arg(address, picture);
}

double Scale(const QString &columnName, const ResultTable &table)
{
    const QString text = ProductField(columnName, table);
    return text.isEmpty() ? 0 : NumberOfField(text, columnName, table, ProductRow);
}

QString ScaleText(double scale)
{
    const auto whole = [](double value) { return QString::number(RoundHalfEven(value), 'f', 0); };
    if (scale <= 0)
        return {};
    if (scale < 1)
        return QStringLiteral("1:") + whole(1 / scale);
    return whole(scale) + QStringLiteral(":1");
}

} // namespace

void HtmlBuilder::WriteProductDetails(HtmlDocument &browser, const ResultTable &table,
                                      const ResultTable & /*productRows*/,
                                      const CategoryNode *node) const
{
    browser.Apply({
        HtmlChange(QStringLiteral("productTitle"), ProductField(QStringLiteral("l.name"), table)),
        HtmlChange(QStringLiteral("productDetails"), FactsHtml(table)),
    });
    // The page may still show the members of a set: its list goes, its pictures come back.
    browser.Apply({
        HtmlChange(QStringLiteral("printHeader"), BuildPrintHeader(node, {})),
        HtmlChange(QStringLiteral("printFooter"), BuildPrintFooter()),
        HtmlChange(QStringLiteral("list"), {}),
        HtmlChange(QStringLiteral("productImages"), ImagesHtml(table)),
        VisibilityChange(QStringLiteral("imagesTable"), true),
    });
}

QString HtmlBuilder::FactsHtml(const ResultTable &table) const
{
    const QString artNr = ProductField(QStringLiteral("p.artNr"), table);
    const QString helpId = ProductField(QStringLiteral("p.helpId"), table);

    QString html = QStringLiteral(R"(<table width="100%" border="0"><tr class="contListRow">)"
                                  R"(<td class="prodItem" valign="top">%1</td>)"
                                  R"(<td class="prodItem" valign="top">%2</td>)")
                       .arg(artNr, ProductField(QStringLiteral("l.name"), table));
    html += NarrowCell(ProductField(context->GetSizeColumn(), table));
    html += NarrowCell(ProductField(QStringLiteral("l.form"), table));
    if (context->HasPriceList())
        html += NarrowCell(context->GetPrice(artNr));
    if (context->HasPdfDocument(artNr))
        html += IconLinkCell(context->GetPdfDocumentUrl(artNr), QStringLiteral("pdf_icon.gif"));
    if (!helpId.isEmpty())
        html += IconLinkCell(context->GetInfoDocumentUrl(helpId), QStringLiteral("help.gif"));
    html += AddToCartCell(*context, ProductField(QStringLiteral("p.ID"), table));
    return html + QLatin1String("</tr></table>");
}

QString HtmlBuilder::ImagesHtml(const ResultTable &table) const
{
    const QString filePath = ProductField(QStringLiteral("p.filePath"), table);
    QString cells;
    for (const int number : {1, 2, 3}) {
        const QString column = QStringLiteral("p.img%1").arg(number);
        // A scale that is no number is an error even where there is no picture.
        const double scale = Scale(column + QLatin1String("Scale"), table);
        cells += BuildImageCell(filePath, ProductField(column, table), scale);
    }
    return QStringLiteral("<table><tr>%1</tr></table>").arg(cells);
}

QString HtmlBuilder::BuildImageCell(const QString &filePath, const QString &imageName,
                                    double scale) const
{
    if (imageName.isEmpty())
        return {};
    return QStringLiteral(R"(<td class="prodItem"><img src="%1/Grafiken/gross%2/%3"><br>%4</td>)")
        .arg(context->GetResourceBaseUrl(), filePath, imageName, ScaleText(scale));
}

} // namespace Tesk
