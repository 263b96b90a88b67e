#pragma once

#include "core/BreadcrumbUtil.h"

#include <QList>
#include <QString>

namespace Tesk {

class Breadcrumb;
class CategoryTree;
class NavLeft;

/// Where the user is in the catalogue: the crumbs and the left menu's mark. They tell of the page;
/// while something is shown that is no page, they tell of that.
class ShownPlace final
{
public:
    /// Both outlive the object.
    ShownPlace(Breadcrumb &crumbs, NavLeft &menu);

    void SetCrumbsOfPage(const QList<Crumb> &list);
    /// Gives the categories among the crumbs their names in the tree's language.
    void RelabelCrumbsOfPage(const CategoryTree &tree);
    /// The category whose entry is marked; the empty text marks none.
    void SetMarkOfPage(const QString &categoryId);

    /// Tells of something else, until the user is back at the page.
    void TellOfOther(const QList<Crumb> &list, const QString &entry);
    void TellOfPage();

private:
    Breadcrumb &crumbs;
    NavLeft &menu;
    QList<Crumb> crumbsOfPage;
    QString markOfPage;
    bool isOther = false;
};

} // namespace Tesk
