#pragma once

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

namespace Tesk {

class ResultTable;

/// One category. Everything outside the tree addresses it by its tag, the category ID.
class CategoryNode final
{
public:
    QString key;                          ///< "C" and the TREE_ID
    QString text;                         ///< the title in the current language
    QString tag;                          ///< the category ID as text
    const CategoryNode *parent = nullptr; ///< nullptr for a top-level node
    std::vector<const CategoryNode *> children;

    bool HasChildren() const { return !children.empty(); }
    /// The titles from the top level down to this node, joined by "\".
    QString FullPath() const;
    /// The ancestor (or this node) whose parent is a top-level node; nullptr for a top-level node.
    const CategoryNode *SecondLevelAncestor() const;
};

/// The category tree in the order of its first fill, which a change of language keeps.
class CategoryTree final
{
public:
    /// Fills the tree from the columns ID, TREE_ID, parent and title (positions 0 to 3); a tree
    /// that holds nodes takes the titles only. Throws SubscriptError for an unknown parent, or for
    /// a title whose category the tree lacks, and DuplicateKeyError for a TREE_ID that occurs
    /// twice; a tree that was empty then stays empty.
    void Fill(const ResultTable &categories);

    bool IsEmpty() const { return nodes.empty(); }
    /// All nodes in collection order, parents before their children.
    const std::vector<std::unique_ptr<CategoryNode>> &Nodes() const { return nodes; }
    /// The node with this key, or nullptr.
    const CategoryNode *FindByKey(const QString &key) const;
    /// The first node with this tag in collection order, or nullptr.
    const CategoryNode *FindByTag(const QString &tag) const;

private:
    void AddNode(const QString &tag, const QString &treeId, const QString &parentId,
                 const QString &title);
    void Relabel(const ResultTable &categories);
    CategoryNode *ExistingNode(const QString &key) const;

    std::vector<std::unique_ptr<CategoryNode>> nodes;
    QHash<QString, CategoryNode *> byKey;
    QHash<QString, CategoryNode *> firstByTag;
};

} // namespace Tesk
