#include "ui/main/CategorySelection.h"

#include "core/CategoryTree.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/ShownPlace.h"

#include <utility>

namespace Tesk {

CategorySelection::CategorySelection(CategoryTreeView &view, ShownPlace &shownPlace)
    : tree(view)
    , place(shownPlace)
{}

void CategorySelection::Select(const CategoryNode &node)
{
    if (const CategoryNode *const entry = node.SecondLevelAncestor())
        place.SetMarkOfPage(entry->tag);
    if (current != nullptr) {
        tree.SetBold(current, false);
        tree.CollapseNodePath(current);
    }
    tree.SetBold(&node, true);
    current = &node;
    tree.ExpandNodePath(&node);
    tree.SetCurrent(&node);
}

void CategorySelection::Clear()
{
    if (current != nullptr)
        tree.SetBold(std::exchange(current, nullptr), false);
    place.SetMarkOfPage({});
}

} // namespace Tesk
