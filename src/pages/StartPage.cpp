#include "core/CategoryTree.h"
#include "pages/CategoryLink.h"
#include "pages/Changes.h"
#include "pages/HtmlBuilder.h"
#include "pages/Int16.h"
#include "pages/PageContext.h"

namespace Tesk {

namespace {

/// The first two levels of the tree. Headlines and links are numbered together, so the ids of the
/// links skip the numbers of the headlines.
QString IndexHtml(const PageContext &context, const CategoryTree &tree)
{
    QString html = QStringLiteral(R"(<table width="100%" border="0">)");
    int n = 0;
    const CategoryNode *lastTop = nullptr;
    for (const auto &node : tree.Nodes()) {
        if (!node->parent) {
            lastTop = node.get();
            html += QStringLiteral(R"(<tr><td class="navHeadline">%1</td></tr>)").arg(node->text);
            ++n;
        } else if (node->parent == lastTop) {
            html += CategoryLinkRow(context, *node, Int16(n++));
        }
    }
    return html + QLatin1String("</table>");
}

} // namespace

void HtmlBuilder::WriteStartPage(HtmlDocument &browser, const CategoryTree &tree) const
{
    const auto textChange = [this](const QString &id, const QString &key) {
        return HtmlChange(id, context->GetText(key));
    };
    browser.Apply({
        HtmlChange(QStringLiteral("list"), IndexHtml(*context, tree)),
        textChange(QStringLiteral("text"), QStringLiteral("ucWelcomeText")),
        HtmlChange(QStringLiteral("infos"), QStringLiteral("Liste")),
        textChange(QStringLiteral("captionHead"), QStringLiteral("ucWelcomeCaption")),
        textChange(QStringLiteral("captionLeft"), QStringLiteral("ucInfosCaption")),
        textChange(QStringLiteral("captionRight"), QStringLiteral("ucCategoriesCaption")),
    });
}

} // namespace Tesk
