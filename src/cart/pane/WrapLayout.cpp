#include "cart/pane/WrapLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace Tesk {

WrapLayout::WrapLayout(int gap, QWidget *parent)
    : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(gap);
}

WrapLayout::~WrapLayout() = default;

void WrapLayout::addItem(QLayoutItem *item)
{
    items.emplace_back(item);
}

int WrapLayout::count() const
{
    return static_cast<int>(items.size());
}

QLayoutItem *WrapLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? items[static_cast<size_t>(index)].get() : nullptr;
}

QLayoutItem *WrapLayout::takeAt(int index)
{
    if (itemAt(index) == nullptr)
        return nullptr;
    const auto position = items.begin() + index;
    QLayoutItem *const item = position->release();
    items.erase(position);
    return item;
}

QSize WrapLayout::sizeHint() const
{
    QSize size(std::max(0, count() - 1) * spacing(), 0);
    for (const auto &item : items) {
        const QSize preferred = item->sizeHint();
        size = {size.width() + preferred.width(), std::max(size.height(), preferred.height())};
    }
    return size;
}

QSize WrapLayout::minimumSize() const
{
    QSize size;
    for (const auto &item : items)
        size = size.expandedTo(item->sizeHint());
    return size;
}

int WrapLayout::heightForWidth(int width) const
{
    return Arrange(QRect(0, 0, width, 0), false);
}

void WrapLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    Arrange(rect, true);
}

int WrapLayout::Arrange(const QRect &rect, bool place) const
{
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    QPoint position = rect.topLeft();
    int lineHeight = 0;
    for (const auto &item : items) {
        const QSize size = item->sizeHint();
        if (lineHeight > 0 && position.x() + size.width() > rect.right() + 1) {
            position = {rect.left(), position.y() + lineHeight + spacing()};
            lineHeight = 0;
        }
        if (place)
            item->setGeometry(QStyle::visualRect(direction, rect, QRect(position, size)));
        position.rx() += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return position.y() + lineHeight - rect.top();
}

} // namespace Tesk
