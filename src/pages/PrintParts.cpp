#include "core/CategoryTree.h"
#include "pages/HtmlBuilder.h"
#include "pages/PageContext.h"

namespace Tesk {

namespace {

QString CartHeading(const PageContext &context)
{
    return QStringLiteral(R"(<div style="margin-top:30px; margin-bottom:20px; )"
                          R"(padding-bottom:10px; border-bottom: solid #9C9A9C 1px;">)"
                          R"(<span class="contArea">%1</span></div>)")
        .arg(context.GetText(QStringLiteral("tabControlShoppingCart")));
}

} // namespace

QString HtmlBuilder::BuildPrintHeader(const CategoryNode *node, const QString &pageKey) const
{
    QString header = QStringLiteral(R"(<img src="img/tlogo.gif" border="0">)");
    if (node)
        header += QStringLiteral(R"(<div style="margin-top:8px;">%1</div>)").arg(node->FullPath());
    else if (pageKey == QLatin1String("wc"))
        header += CartHeading(*context);
    return header;
}

QString HtmlBuilder::BuildPrintFooter() const
{
    return QStringLiteral("&nbsp;&copy; %1 %2")
        .arg(today().toString(QStringLiteral("yyyy")),
             context->GetText(QStringLiteral("commonAddress")));
}

} // namespace Tesk
