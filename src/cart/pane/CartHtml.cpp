#include "cart/pane/CartHtml.h"

#include "cart/model/clsShoppingCart.h"
#include "pages/PageContext.h"

#include <QRegularExpression>

namespace Tesk {

namespace {

// Texts of the cart are joined, never filled into a pattern: they may hold a pattern's marks.

/// The text within an attribute, which the first quotation mark would end.
QString InAttribute(QString text)
{
    return text.replace(u'"', QLatin1String("&quot;"));
}

/// What a person typed. Only the catalogue writes signs by their names: "&uuml;".
QString Typed(QString text)
{
    static const QRegularExpression nameOfASign(QStringLiteral("&(?=#|[A-Za-z][A-Za-z0-9])"));
    return text.replace(nameOfASign, QStringLiteral("&amp;"));
}

/// What a person typed as the content of a cell, where a tag would not be seen.
QString TypedContent(const QString &text)
{
    static const QRegularExpression tag(QStringLiteral("<(?=[A-Za-z/!?])"));
    return Typed(text).replace(tag, QStringLiteral("&lt;"));
}

QString ItemCell(const QString &content)
{
    return QStringLiteral(R"(<td valign="top" class="prodItem">)") + content +
           QStringLiteral("</td>");
}

QString CaptionCell(const QString &text)
{
    return QStringLiteral(R"(<td valign="top" class="prodCaption">)") + text +
           QStringLiteral("</td>");
}

QString RowStart(const QString &key, bool isMember)
{
    const QString row = QStringLiteral("contListRow") + key;
    const QString mark =
        isMember
            ? QString()
            : QStringLiteral(
                  R"(&nbsp;<img src="img/navPointer.gif" border="0" alt="" vspace="2">&nbsp;)");
    return QStringLiteral(R"(<tr id=")") + row +
           QStringLiteral(R"(" onmouseover="changeBackgroundColor(')") + row +
           QStringLiteral(R"(', 'C3C3C3');" onmouseout="changeBackgroundColor(')") + row +
           QStringLiteral(R"(', 'ffffff');" class="contListRow"><td width="20" valign="top">)") +
           mark + QStringLiteral("</td>");
}

QString Field(const char *cssClass, const char *idPrefix, const QString &key, const QString &value,
              const QString &leave)
{
    return ItemCell(QStringLiteral(R"(<input class=")") + QLatin1String(cssClass) +
                    QStringLiteral(R"(" type="text" id=")") + QLatin1String(idPrefix) + key +
                    QStringLiteral(R"(" value=")") + InAttribute(value) +
                    QStringLiteral(R"html(" onfocus="activateAlert(this)" onblur=")html") +
                    InAttribute(leave) + QStringLiteral(R"(">)"));
}

QString ReadOnlyCells(const clsShoppingCartItem &article)
{
    return ItemCell(TypedContent(article.AltCategory)) + ItemCell(QString::number(article.Amount));
}

} // namespace

CartHtml::CartHtml(const PageContext &pageContext)
    : context(pageContext)
{}

QString CartHtml::Text(const char *key) const
{
    return context.GetText(QLatin1String(key));
}

QString CartHtml::CartList(const clsShoppingCart &cart) const
{
    if (cart.Count() < 1)
        return QStringLiteral(R"(<div class="prodCaption">&nbsp;)") +
               Text("ucShoppingCartNoEntries") + QStringLiteral("</div>");
    return Table(cart, Kind::Cart);
}

QString CartHtml::OrderList(const clsShoppingCart &cart) const
{
    return cart.Count() < 1 ? QString() : Table(cart, Kind::Order);
}

QString CartHtml::Table(const clsShoppingCart &cart, Kind kind) const
{
    QString html = QStringLiteral(R"(<table cellpadding="0" cellspacing="0" width="100%">)");
    html += Captions();
    int index = cart.Entries().LowerBound();
    for (const auto &item : cart.Entries())
        html += ItemRows(*item, index++, kind);
    return html + QStringLiteral("</table>");
}

/// The column of the delete links has no caption.
QString CartHtml::Captions() const
{
    QString html = QStringLiteral("<tr><td></td>") + CaptionCell(Text("productListCaptionNr")) +
                   CaptionCell(Text("productListCaptionDescription"));
    if (context.HasPriceList())
        html += QStringLiteral(R"(<td class="prodCaption">)") + Text("productListCaptionPrice") +
                QStringLiteral("</td><td>&nbsp;</td>");
    return html + CaptionCell(Text("ucShoppingCartManualCatId")) +
           CaptionCell(Text("productListAmount")) + QStringLiteral("</tr>");
}

QString CartHtml::ItemRows(const clsShoppingCartItem &item, int index, Kind kind) const
{
    // A member's delete link asks about the set, whose number the user knows from the line above.
    const auto row = [&](const clsShoppingCartItem &article, const QString &key, bool isMember) {
        const QString start = RowStart(key, isMember) + ArticleCells(article);
        const QString rest = kind == Kind::Order ? ReadOnlyCells(article)
                                                 : Fields(article, key, isMember) +
                                                       DeleteCell(item.ArtNr, key, isMember);
        return start + rest + QStringLiteral("</tr>");
    };

    const QString itemKey = QString::number(index);
    QString html = row(item, itemKey, false);
    if (!item.IsSet())
        return html;
    int memberIndex = item.SetItems->LowerBound();
    for (const auto &member : *item.SetItems)
        html += row(*member, itemKey + u'_' + QString::number(memberIndex++), true);
    return html;
}

QString CartHtml::ArticleCells(const clsShoppingCartItem &article) const
{
    QString html = ProductCell(article.Id, article.ArtNr) + ProductCell(article.Id, article.Title);
    if (context.HasPriceList())
        html += QStringLiteral(R"(<td width="50" class="prodItem" valign="top">)") +
                context.GetPrice(article.ArtNr) + QStringLiteral("</td><td>&nbsp;</td>");
    return html;
}

QString CartHtml::ProductCell(const QString &id, const QString &text) const
{
    return QStringLiteral(R"(<td valign="top" class="prodItem" onclick="window.location=')") +
           context.GetContentBaseUrl() + QStringLiteral("/content/product_details.html?id=") +
           InAttribute(id) + QStringLiteral(R"(';">)") + text + QStringLiteral("</td>");
}

QString CartHtml::Fields(const clsShoppingCartItem &article, const QString &key,
                         bool isMember) const
{
    const QString leave = QStringLiteral("setAmount(this)");
    const QString leaveAmount = isMember ? leave
                                         : QStringLiteral("setAmount(this,'") +
                                               Text("ucShoppingCartManualAmountError") +
                                               QStringLiteral("')");
    return Field("catField", "cat_", key, Typed(article.AltCategory), leave) +
           Field("amountField", "fld_", key, QString::number(article.Amount), leaveAmount);
}

QString CartHtml::DeleteCell(const QString &artNr, const QString &key, bool isMember) const
{
    const auto textFor = [&](const char *textKey) {
        return InAttribute(Text(textKey).replace(QLatin1String("{0}"), artNr));
    };
    const QString text = textFor("mShoppingCartItemDelete");
    return ItemCell(
        QStringLiteral(R"(<a href="javascript:if(confirm(')") +
        textFor("mShoppingCartItemDeleteConfirm") + QStringLiteral("')){ delItem('") + key +
        QStringLiteral(R"(') }" title=")") + text +
        QStringLiteral(R"("><img src="img/btnDelete.gif" border="0" alt=")") + text +
        (isMember ? QStringLiteral(R"("/></a>&nbsp;)") : QStringLiteral(R"(" /></a>&nbsp;)")));
}

} // namespace Tesk
