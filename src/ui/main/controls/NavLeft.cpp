#include "ui/main/controls/NavLeft.h"

#include "core/CategoryTree.h"
#include "ui/main/controls/Colours.h"
#include "ui/main/controls/NavEntry.h"
#include "ui/main/controls/NavItems.h"
#include "ui/main/controls/Twips.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace Tesk {

namespace {

// In pixels.
constexpr int LineWidth = 1;
constexpr int ScrollBarWidth = 8;

constexpr QLatin1String SearchTag("searchDetail");

QString ScrollBarStyle()
{
    return QStringLiteral("QScrollBar:vertical { background: %1; width: %2px; margin: 0; }"
                          "QScrollBar::handle:vertical { background: %3; border-radius: 3px;"
                          " min-height: 24px; margin: 1px; }"
                          "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
                          "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
        .arg(Colours::Ground.name(), QString::number(ScrollBarWidth), Colours::Marked.name());
}

} // namespace

NavLeft::NavLeft(std::function<QString(const QString &key)> textLookup, QWidget *parent)
    : QWidget(parent)
    , getText(std::move(textLookup))
    , area(new QScrollArea(this))
    , items(new NavItems)
{
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, LineWidth, 0);
    layout->addWidget(area);

    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->verticalScrollBar()->setStyleSheet(ScrollBarStyle());
    area->setWidgetResizable(true);
    area->setWidget(items);
    items->installEventFilter(this);
    connect(items, &NavItems::EntryClicked, this, [this](int index) {
        MarkEntry(index);
        Q_EMIT OnCategorySelect(items->Entry(index)->Tag());
    });
    connect(items, &NavItems::LaidOut, this, &NavLeft::FitWidth);
    FitWidth();
}

void NavLeft::Initialize(const CategoryTree &tree)
{
    setAccessibleName(getText(QStringLiteral("ucCategoriesCaption")));
    items->Restart();
    const CategoryNode *top = nullptr;
    for (const auto &node : tree.Nodes()) {
        if (node->parent == nullptr) {
            top = node.get();
            items->AddHeading(node->text);
        } else if (node->parent == top) {
            items->AddEntry(node->text, node->tag);
        }
    }
    items->AddHeading(getText(QStringLiteral("searchHeadline")));
    items->AddEntry(getText(QStringLiteral("searchDetail")), SearchTag);
    items->Finish();
    for (NavEntry *const entry : items->Entries())
        entry->installEventFilter(this);
    OrderTabStops();
    ClearMark();
    SetTabStop(0);
}

// Made after the rest of the window, the entries would come last. Qt orders only what takes the
// focus, which is sorted out again by SetTabStop().
void NavLeft::OrderTabStops()
{
    QWidget *previous = items;
    items->setFocusPolicy(Qt::TabFocus);
    for (NavEntry *const entry : items->Entries()) {
        entry->setFocusPolicy(Qt::TabFocus);
        setTabOrder(previous, entry);
        previous = entry;
    }
    items->setFocusPolicy(Qt::NoFocus);
}

void NavLeft::FitWidth()
{
    const bool scrolls = items->minimumHeight() > height();
    setFixedWidth(Twips::ToPixels(NavEntry::Width) + LineWidth + (scrolls ? ScrollBarWidth : 0));
}

QSize NavLeft::sizeHint() const
{
    return {width(), items->minimumHeight()};
}

void NavLeft::selectSubCategory(const QString &catId)
{
    const auto &entries = items->Entries();
    const auto entry = std::ranges::find(entries, catId, &NavEntry::Tag);
    if (catId.isEmpty() || entry == entries.end())
        ClearMark();
    else
        MarkEntry(items->IndexOf(*entry));
}

void NavLeft::MarkEntry(int index)
{
    if (index == selected)
        return;
    if (selected >= 0) {
        items->Entry(selected)->SetMarked(false);
        items->Entry(selected)->SetHovered(false);
    }
    selected = index;
    NavEntry *const entry = items->Entry(index);
    entry->SetMarked(true);
    SetTabStop(index);
    area->ensureWidgetVisible(entry, 0, entry->height());
}

void NavLeft::ClearMark()
{
    selected = -1;
    hoverActive = false;
    for (NavEntry *const entry : items->Entries()) {
        entry->SetMarked(false);
        entry->SetHovered(false);
    }
}

void NavLeft::HoverEntry(int index)
{
    hoverActive = true;
    for (NavEntry *const entry : items->Entries())
        entry->SetHovered(items->IndexOf(entry) == index);
}

void NavLeft::ResetMouseCapture()
{
    if (!hoverActive)
        return;
    HoverEntry(-1);
    hoverActive = false;
}

bool NavLeft::eventFilter(QObject *watched, QEvent *event)
{
    const int index = items->IndexOf(watched);
    switch (event->type()) {
    case QEvent::Enter:
        HoverEntry(index);
        break;
    case QEvent::MouseMove:
        // This comes for movements over a heading or an entry too.
        if (watched == items)
            HoverEntry(items->IndexOf(items->childAt(static_cast<QMouseEvent *>(event)->pos())));
        break;
    case QEvent::Leave:
        // Onto the scroll bar, which is the menu's own.
        if (watched == items)
            ResetMouseCapture();
        break;
    case QEvent::FocusIn:
        if (index >= 0) {
            SetTabStop(index);
            // A heading above it shows too: the first entry's place is as high as one.
            area->ensureWidgetVisible(items->Entry(index), 0, items->Entry(0)->y());
        }
        break;
    case QEvent::KeyPress:
        return index >= 0 && MoveFocus(index, static_cast<QKeyEvent *>(event)->key());
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

bool NavLeft::MoveFocus(int index, int key)
{
    const int last = static_cast<int>(items->Entries().size()) - 1;
    switch (key) {
    case Qt::Key_Up:
        index = std::max(index - 1, 0);
        break;
    case Qt::Key_Down:
        index = std::min(index + 1, last);
        break;
    case Qt::Key_Home:
        index = 0;
        break;
    case Qt::Key_End:
        index = last;
        break;
    default:
        return false;
    }
    items->Entry(index)->setFocus(Qt::TabFocusReason);
    return true;
}

void NavLeft::SetTabStop(int index)
{
    for (NavEntry *const entry : items->Entries())
        entry->setFocusPolicy(items->IndexOf(entry) == index ? Qt::TabFocus : Qt::NoFocus);
}

void NavLeft::leaveEvent(QEvent *event)
{
    ResetMouseCapture();
    QWidget::leaveEvent(event);
}

void NavLeft::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Colours::Ground);
    painter.fillRect(QRect(width() - LineWidth, 0, LineWidth, height()), Colours::Line);
}

void NavLeft::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    FitWidth();
}

} // namespace Tesk
