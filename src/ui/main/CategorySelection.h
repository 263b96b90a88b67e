#pragma once

namespace Tesk {

class CategoryNode;
class CategoryTreeView;
class ShownPlace;

/// The category that the user is in: bold and open in the tree, and marked in the left menu.
class CategorySelection final
{
public:
    /// Both outlive the object, and the tree's nodes do so too.
    CategorySelection(CategoryTreeView &view, ShownPlace &shownPlace);

    /// nullptr at the start and after a search.
    const CategoryNode *Current() const { return current; }

    /// Closes the branches of the category before and opens those of the new one. A top-level
    /// category has no entry in the left menu and leaves its mark.
    void Select(const CategoryNode &node);
    /// No category is selected; the tree's branches stay as they are.
    void Clear();

private:
    CategoryTreeView &tree;
    ShownPlace &place;
    const CategoryNode *current = nullptr;
};

} // namespace Tesk
