#include "ui/main/ShownPlace.h"

#include "core/CategoryTree.h"
#include "ui/main/PageAddress.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/NavLeft.h"

namespace Tesk {

ShownPlace::ShownPlace(Breadcrumb &crumbs, NavLeft &menu)
    : crumbs(crumbs)
    , menu(menu)
{}

void ShownPlace::SetCrumbsOfPage(const QList<Crumb> &list)
{
    crumbsOfPage = list;
    crumbs.SetList(list);
}

void ShownPlace::RelabelCrumbsOfPage(const CategoryTree &tree)
{
    for (Crumb &crumb : crumbsOfPage) {
        if (const CategoryNode *const node = tree.FindByTag(PageAddress::Id(crumb.link)))
            crumb.caption = node->text;
    }
    if (!isOther)
        crumbs.SetList(crumbsOfPage);
}

void ShownPlace::SetMarkOfPage(const QString &categoryId)
{
    markOfPage = categoryId;
    menu.selectSubCategory(categoryId);
}

void ShownPlace::TellOfOther(const QList<Crumb> &list, const QString &entry)
{
    isOther = true;
    crumbs.SetList(list);
    menu.selectSubCategory(entry);
}

void ShownPlace::TellOfPage()
{
    if (!isOther)
        return;
    isOther = false;
    crumbs.SetList(crumbsOfPage);
    menu.selectSubCategory(markOfPage);
}

} // namespace Tesk
