#include "pages/CategoryLink.h"

#include "core/CategoryTree.h"
#include "pages/PageContext.h"

namespace Tesk {

QString CategoryLinkRow(const PageContext &context, const CategoryNode &node, qint16 n)
{
    return QStringLiteral(R"(<tr><td id="contListRow%1" class="contListRow">)"
                          R"(<a href="%2/content/category_list.html?id=%3"  class="contListRow" )"
                          R"(onmouseover="changeBackgroundColor('contListRow%1', 'C3C3C3');" )"
                          R"(onmouseout="changeBackgroundColor('contListRow%1', 'FFFFFF');">)"
                          R"(<img src="img/navPointer.gif" border="0">%4</a></td></tr>)")
        .arg(QString::number(n), context.GetContentBaseUrl(), node.tag, node.text);
}

} // namespace Tesk
