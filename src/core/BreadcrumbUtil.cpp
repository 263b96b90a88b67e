#include "core/BreadcrumbUtil.h"

#include "core/CategoryTree.h"

namespace Tesk {

namespace {

constexpr QLatin1String CategoryPage("category_list.html?id=");
constexpr QLatin1String ProductPage("product_list.html?firstItem=1&id=");

} // namespace

QList<Crumb> BuildBreadcrumbPath(const CategoryNode *node)
{
    QList<Crumb> path;
    for (; node; node = node->parent)
        path.prepend({node->text, (node->HasChildren() ? CategoryPage : ProductPage) + node->tag});
    return path;
}

} // namespace Tesk
