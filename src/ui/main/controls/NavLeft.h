#pragma once

#include <QWidget>

#include <functional>

class QScrollArea;

namespace Tesk {

class CategoryTree;
class NavItems;

/// The left menu: the first two levels of the category tree, then the way to the detail search.
/// The arrow keys lead from entry to entry, Enter opens one; a menu that is longer than its place
/// scrolls.
class NavLeft final : public QWidget
{
    Q_OBJECT

public:
    /// `textLookup` gives the text of a key in the current language.
    explicit NavLeft(std::function<QString(const QString &key)> textLookup,
                     QWidget *parent = nullptr);

    /// Builds the menu from the tree's nodes, or captions it anew. No entry is marked then.
    void Initialize(const CategoryTree &tree);
    /// Marks the first entry with the tag `catId`; without one, no entry is marked or hovered.
    void selectSubCategory(const QString &catId);
    /// Takes the hover colour away.
    void ResetMouseCapture();

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user opened the entry of this category; "searchDetail" stands for the detail search.
    void OnCategorySelect(const QString &catId);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void FitWidth();
    void MarkEntry(int index);
    void ClearMark();
    void HoverEntry(int index);
    void OrderTabStops();
    void SetTabStop(int index);
    bool MoveFocus(int index, int key);

    std::function<QString(const QString &)> getText;
    QScrollArea *area;
    NavItems *items;
    int selected = -1; ///< the marked entry's position; −1 without one
    bool hoverActive = false;
};

} // namespace Tesk
