#include "core/CategoryTree.h"
#include "pages/CategoryLink.h"
#include "pages/Changes.h"
#include "pages/HtmlBuilder.h"
#include "pages/Int16.h"
#include "pages/PageContext.h"

namespace Tesk {

void HtmlBuilder::WriteCategoryList(HtmlDocument &browser, const QString &caption,
                                    const CategoryTree &tree, const CategoryNode *node) const
{
    QString html = QStringLiteral(R"(<table width="100%">)");
    int n = 0;
    for (const auto &category : tree.Nodes()) {
        if (category->parent == node)
            html += CategoryLinkRow(*context, *category, Int16(n++));
    }
    html += QLatin1String("</table>");

    browser.Apply({
        HtmlChange(QStringLiteral("printHeader"), BuildPrintHeader(node, {})),
        HtmlChange(QStringLiteral("printFooter"), BuildPrintFooter()),
        HtmlChange(QStringLiteral("caption"), caption),
        HtmlChange(QStringLiteral("list"), html),
    });
}

} // namespace Tesk
