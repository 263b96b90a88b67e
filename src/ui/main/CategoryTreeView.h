#pragma once

#include <QHash>
#include <QTreeWidget>

class QTreeWidgetItem;

namespace Tesk {

class CategoryNode;
class CategoryTree;

/// Shows the category tree. Clicking an entry, or Enter on it, reports its node; what the program
/// selects or expands itself is not reported.
class CategoryTreeView final : public QTreeWidget
{
    Q_OBJECT

public:
    explicit CategoryTreeView(QWidget *parent = nullptr);

    /// Makes the entries when there are none, top-level entries expanded; else relabels them.
    void Show(const CategoryTree &tree);

    void SetBold(const CategoryNode *node, bool isBold);
    bool IsBold(const CategoryNode *node) const;
    /// On the node and each of its ancestors.
    void CollapseNodePath(const CategoryNode *node);
    void ExpandNodePath(const CategoryNode *node);

    /// Moves the keyboard's place to the node's entry; nullptr takes it away.
    void SetCurrent(const CategoryNode *node);

    QTreeWidgetItem *ItemOf(const CategoryNode *node) const;

Q_SIGNALS:
    void NodeClick(const Tesk::CategoryNode *node);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void SetPathExpanded(const CategoryNode *node, bool isExpanded);

    QHash<const CategoryNode *, QTreeWidgetItem *> items;
};

} // namespace Tesk
