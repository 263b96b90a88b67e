#pragma once

#include "core/BreadcrumbUtil.h"

#include <QList>
#include <QString>

namespace Tesk {

class CategoryNode;

/// What the page protocol asks of the window that shows the pages.
class PageHost
{
public:
    virtual ~PageHost() = default;

    /// The selected category, or nullptr while search results are shown.
    virtual const CategoryNode *CurrentNode() const = 0;
    /// Selects the category as if the user had clicked it in the tree: the browser moves to it.
    virtual void TreeViewCategories_NodeClick(const CategoryNode *node) = 0;
    /// Marks the category everywhere as the selected one; the browser stays. nullptr: none is.
    virtual void SelectCategory(const CategoryNode *node) = 0;
    /// The empty text shows the default status text.
    virtual void SetStatusText(const QString &text) = 0;
    /// The way to the page, the way home left out.
    virtual void SetBreadcrumb(const QList<Crumb> &pairs) = 0;
};

} // namespace Tesk
