#include "pages/ListRow.h"

#include "core/ResultTable.h"
#include "pages/PageContext.h"

namespace Tesk {

namespace {

QString StockCell(const QString &picture, const QString &text)
{
    return QStringLiteral(R"(<td width="25" valign="top"><img src="%1" border="0" alt="%2" )"
                          R"(hspace="3"></td>)")
        .arg(picture, text);
}

} // namespace

ListRow::ListRow(const PageContext &pageContext, const ResultTable &products, qint16 rowNumber)
    : context(pageContext)
    , table(products)
    , row(rowNumber)
{}

QString ListRow::Field(const QString &columnName) const
{
    return GetField(columnName, table, row);
}

bool ListRow::IsSet() const
{
    return Field(QStringLiteral("p.isSet")) == QLatin1String("True");
}

QString ListRow::Start() const
{
    return QStringLiteral(R"(<tr id="contListRow%1" )"
                          R"(onmouseover="changeBackgroundColor('contListRow%1', 'C3C3C3');" )"
                          R"(onmouseout="changeBackgroundColor('contListRow%1', 'ffffff');" )"
                          R"(onclick="window.location='%2/content/product_details.html?id=%3';" )"
                          R"(class="contListRow">)")
        .arg(QString::number(row), context.GetContentBaseUrl(), Field(QStringLiteral("p.ID")));
}

QString ListRow::NumberCell() const
{
    return QStringLiteral(
               R"(<td width="20" valign="top">&nbsp;<img src="img/navPointer.gif" vspace="2">)"
               R"(&nbsp;</td><td width="80" valign="top" class="prodItem">%1&nbsp;</td>)")
        .arg(Field(QStringLiteral("p.artNr")));
}

QString ListRow::NameCell() const
{
    return QStringLiteral(R"(<td width="160" class="prodItem" valign="top"><a class="prodItem" )"
                          R"(href="product_details.html?id=%1">%2</a>&nbsp;</td>)")
        .arg(Field(QStringLiteral("p.ID")), Field(QStringLiteral("l.name")));
}

QString ListRow::SizeAndFormCells() const
{
    return QStringLiteral(R"(<td width="50" class="prodItem" valign="top">%1</td>)"
                          R"(<td width="50" class="prodItem" valign="top">%2</td>)")
        .arg(Field(context.GetSizeColumn()), Field(QStringLiteral("l.form")));
}

QString ListRow::PreviewCell() const
{
    return QStringLiteral(R"(<td><div class="contPreview" id="contListRow%1Preview">)"
                          R"(<table border="0" cellspacing="0" cellpadding="0">)"
                          R"(<tr><td class="contPreviewHead" colspan="4">%2</td></tr>)"
                          R"(<tr><td class="contPreviewLeft" valign="top">)"
                          R"(<img src="%3/Grafiken/klein%4/%5" alt="" border="0">)"
                          R"(</td></tr></table></div></td>)")
        .arg(QString::number(row), Field(QStringLiteral("p.artNr")), context.GetResourceBaseUrl(),
             Field(QStringLiteral("p.filePath")), Field(QStringLiteral("p.img1")));
}

QString ListRow::PreviewTriggerCell() const
{
    return QStringLiteral(R"(<td width="25" class="contListRowNext" valign="top" )"
                          R"(onmouseover="return!showPopup('contListRow%1Preview',event);"  )"
                          R"(onMouseOut="hideCurrentPopup();"><img src="img/contIconPrev.gif" )"
                          R"(class="contIconPrev" alt="" width="13" height="14" border="0"></td>)")
        .arg(row);
}

QString ListStart(const PageContext &context)
{
    return QStringLiteral(
               R"(<table cellpadding="0" cellspacing="0" border="0" width="100%" align="center">)"
               R"(<tr><td></td><td class="prodCaption">%1</td><td class="prodCaption">%2</td>)")
        .arg(context.GetText(QStringLiteral("productListCaptionNr")),
             context.GetText(QStringLiteral("productListCaptionDescription")));
}

QString SizeAndFormCaptions(const PageContext &context)
{
    return QStringLiteral(R"(<td class="prodCaption"><nobr>%1</nobr></td>)"
                          R"(<td class="prodCaption"><nobr>%2&nbsp;</nobr></td>)")
        .arg(context.GetText(QStringLiteral("productListCaptionUnit")),
             context.GetText(QStringLiteral("productListCaptionForm")));
}

QString CaptionsEnd()
{
    return QStringLiteral(R"(<td class="prodCaption"></td></tr>)");
}

QString NoProductsHtml(const PageContext &context)
{
    return QStringLiteral(R"(<div class="prodCaption">&nbsp;%1</div>)")
        .arg(context.GetText(QStringLiteral("productListNoProducts")));
}

QString AddToCartCell(const PageContext &context, const QString &productId)
{
    return QStringLiteral(
               R"html(<td width="25" valign="top"><a href="javascript:setStatusbar(%1)">)html"
               R"(<img src="img/contWarenkorb.gif" border="0" alt="%2"></a></td>)")
        .arg(productId, context.GetText(QStringLiteral("productListAddToShoppingCart")));
}

QString InStockCell(const PageContext &context)
{
    return StockCell(QStringLiteral("img/contIconAbLager.gif"),
                     context.GetText(QStringLiteral("productListIsStoreProduct")));
}

QString NotInStockCell(const PageContext &context, const QString &picture)
{
    return StockCell(picture, context.GetText(QStringLiteral("productListIsNotStoreProduct")));
}

} // namespace Tesk
