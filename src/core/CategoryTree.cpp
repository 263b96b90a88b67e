#include "core/CategoryTree.h"

#include "base/Errors.h"
#include "core/ResultTable.h"

namespace Tesk {

namespace {

constexpr QLatin1Char PathSeparator('\\');

// The positions of the columns in the rows of the categories.
constexpr int IdColumn = 0;
constexpr int TreeIdColumn = 1;
constexpr int ParentColumn = 2;
constexpr int TitleColumn = 3;

QString NodeKey(const QString &treeId)
{
    return QLatin1Char('C') + treeId;
}

} // namespace

QString CategoryNode::FullPath() const
{
    return parent ? parent->FullPath() + PathSeparator + text : text;
}

const CategoryNode *CategoryNode::SecondLevelAncestor() const
{
    if (!parent)
        return nullptr;
    return parent->parent ? parent->SecondLevelAncestor() : this;
}

void CategoryTree::Fill(const ResultTable &categories)
{
    if (!IsEmpty()) {
        Relabel(categories);
        return;
    }
    CategoryTree tree;
    for (int row = 1; row <= categories.UpperRow(); ++row)
        tree.AddNode(categories.Text(row, IdColumn), categories.Text(row, TreeIdColumn),
                     categories.Text(row, ParentColumn), categories.Text(row, TitleColumn));
    *this = std::move(tree);
}

const CategoryNode *CategoryTree::FindByKey(const QString &key) const
{
    return byKey.value(key);
}

const CategoryNode *CategoryTree::FindByTag(const QString &tag) const
{
    return firstByTag.value(tag);
}

void CategoryTree::AddNode(const QString &tag, const QString &treeId, const QString &parentId,
                           const QString &title)
{
    auto node = std::make_unique<CategoryNode>();
    node->key = NodeKey(treeId);
    node->text = title;
    node->tag = tag;
    if (byKey.contains(node->key))
        throw DuplicateKeyError(QStringLiteral("The catalogue holds two categories with the "
                                               "TREE_ID \"%1\". Ask its maker for a new one.")
                                    .arg(treeId));
    if (!parentId.isEmpty()) {
        CategoryNode *parent = ExistingNode(NodeKey(parentId));
        node->parent = parent;
        parent->children.push_back(node.get());
    }
    byKey.insert(node->key, node.get());
    if (!firstByTag.contains(tag))
        firstByTag.insert(tag, node.get());
    nodes.push_back(std::move(node));
}

void CategoryTree::Relabel(const ResultTable &categories)
{
    for (int row = 1; row <= categories.UpperRow(); ++row)
        ExistingNode(NodeKey(categories.Text(row, TreeIdColumn)))->text =
            categories.Text(row, TitleColumn);
}

CategoryNode *CategoryTree::ExistingNode(const QString &key) const
{
    CategoryNode *node = byKey.value(key);
    if (!node)
        throw SubscriptError(QStringLiteral("The catalogue's tree has no category with the "
                                            "TREE_ID \"%1\". Ask its maker for a new one.")
                                 .arg(key.mid(1)));
    return node;
}

} // namespace Tesk
