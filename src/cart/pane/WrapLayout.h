#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace Tesk {

/// Lays its items out in a line from left to right, each in its preferred size, and goes on in a
/// further line where the width ends.
class WrapLayout final : public QLayout
{
public:
    explicit WrapLayout(int gap, QWidget *parent = nullptr);
    ~WrapLayout() override;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;

    /// All items in one line.
    QSize sizeHint() const override;
    /// The largest item.
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    void setGeometry(const QRect &rect) override;
    Qt::Orientations expandingDirections() const override { return {}; }

private:
    /// The height that the lines take; places the items when `place` is set.
    int Arrange(const QRect &rect, bool place) const;

    std::vector<std::unique_ptr<QLayoutItem>> items;
};

} // namespace Tesk
