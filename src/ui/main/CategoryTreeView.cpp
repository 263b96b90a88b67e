#include "ui/main/CategoryTreeView.h"

#include "core/CategoryTree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>

namespace Tesk {

namespace {

constexpr int NodeRole = Qt::UserRole;
constexpr int RowPadding = 8; // pixels

const CategoryNode *NodeOf(const QTreeWidgetItem *item)
{
    return static_cast<const CategoryNode *>(item->data(0, NodeRole).value<void *>());
}

/// Gives the rows room to be read and hit.
class RoomyDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, RowPadding);
    }
};

} // namespace

CategoryTreeView::CategoryTreeView(QWidget *parent)
    : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setItemDelegate(new RoomyDelegate(this));
    setColumnCount(1);
    setUniformRowHeights(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    // The click has expanded the entry already; a double click would fold it again.
    setExpandsOnDoubleClick(false);
    connect(this, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *item) { Q_EMIT NodeClick(NodeOf(item)); });
}

void CategoryTreeView::Show(const CategoryTree &tree)
{
    for (const auto &node : tree.Nodes()) {
        QTreeWidgetItem *&item = items[node.get()];
        if (item == nullptr) {
            QTreeWidgetItem *const parentItem = items.value(node->parent);
            item =
                parentItem != nullptr ? new QTreeWidgetItem(parentItem) : new QTreeWidgetItem(this);
            item->setData(
                0, NodeRole,
                QVariant::fromValue(const_cast<void *>(static_cast<const void *>(node.get()))));
            if (node->parent == nullptr)
                item->setExpanded(true);
        }
        item->setText(0, node->text);
    }
}

void CategoryTreeView::SetBold(const CategoryNode *node, bool isBold)
{
    QTreeWidgetItem *const item = ItemOf(node);
    if (item == nullptr)
        return;
    QFont itemFont = item->font(0);
    itemFont.setBold(isBold);
    item->setFont(0, itemFont);
}

bool CategoryTreeView::IsBold(const CategoryNode *node) const
{
    const QTreeWidgetItem *const item = ItemOf(node);
    return item != nullptr && item->font(0).bold();
}

void CategoryTreeView::CollapseNodePath(const CategoryNode *node)
{
    SetPathExpanded(node, false);
}

void CategoryTreeView::ExpandNodePath(const CategoryNode *node)
{
    SetPathExpanded(node, true);
}

void CategoryTreeView::SetPathExpanded(const CategoryNode *node, bool isExpanded)
{
    for (; node != nullptr; node = node->parent) {
        if (QTreeWidgetItem *const item = ItemOf(node))
            item->setExpanded(isExpanded);
    }
}

void CategoryTreeView::SetCurrent(const CategoryNode *node)
{
    setCurrentItem(ItemOf(node));
}

QTreeWidgetItem *CategoryTreeView::ItemOf(const CategoryNode *node) const
{
    return items.value(node);
}

void CategoryTreeView::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && currentItem() != nullptr) {
        Q_EMIT NodeClick(NodeOf(currentItem()));
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

} // namespace Tesk
