#pragma once

#include <QList>
#include <QString>

namespace Tesk {

class CategoryNode;

/// One step of the way to a page.
struct Crumb
{
    QString caption;
    QString link; ///< the page's address relative to the content folder; may be empty

    bool operator==(const Crumb &) const = default;
};

/// The way from the top level (position 0) down to the node; empty without a node.
QList<Crumb> BuildBreadcrumbPath(const CategoryNode *node);

} // namespace Tesk
