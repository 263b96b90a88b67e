#include "ui/main/controls/NavItems.h"

#include "ui/main/controls/Colours.h"
#include "ui/main/controls/NavEntry.h"
#include "ui/main/controls/NavHeading.h"
#include "ui/main/controls/Twips.h"

#include <QEvent>

#include <algorithm>

namespace Tesk {

namespace {

// All in twips.
constexpr int GapAboveHeading = 200;
constexpr int GapBelowHeading = 50;
constexpr int EntryMargin = 55; ///< above and below the caption together
constexpr int EntryStep = 50;   ///< from the end of a caption's height to the next entry

template <typename Item>
void RemoveFrom(std::vector<Item *> &items, size_t count)
{
    for (; items.size() > count; items.pop_back())
        delete items.back();
}

} // namespace

NavItems::NavItems()
{
    setAutoFillBackground(true);
    setMouseTracking(true);
    QPalette colours;
    colours.setColor(QPalette::Window, Colours::Ground);
    setPalette(colours);
}

void NavItems::Restart()
{
    rows.clear();
    mainIndex = 0;
    subIndex = 0;
}

void NavItems::AddHeading(const QString &caption)
{
    if (mainIndex == headings.size()) {
        headings.push_back(new NavHeading(this));
        headings.back()->setMouseTracking(true);
    }
    NavHeading *const heading = headings[mainIndex++];
    heading->SetCaption(caption);
    rows.emplace_back(heading);
}

void NavItems::AddEntry(const QString &caption, const QString &tag)
{
    if (subIndex == entries.size()) {
        entries.push_back(new NavEntry(this));
        connect(entries.back(), &NavEntry::clicked, this,
                [this, index = int(subIndex)] { Q_EMIT EntryClicked(index); });
    }
    NavEntry *const entry = entries[subIndex++];
    entry->SetEntry(caption, tag);
    rows.emplace_back(entry);
}

void NavItems::Finish()
{
    RemoveFrom(headings, mainIndex);
    RemoveFrom(entries, subIndex);
    LayOut();
}

void NavItems::LayOut()
{
    y = 0;
    for (const auto &row : rows) {
        if (auto *const *heading = std::get_if<NavHeading *>(&row)) {
            if (y > 0)
                y += GapAboveHeading;
            const int height = (*heading)->BandHeight();
            (*heading)->setGeometry(Twips::ToPixels(QRect(0, y, NavHeading::Width, height)));
            (*heading)->show();
            y += height + GapBelowHeading;
        } else {
            NavEntry *const entry = std::get<NavEntry *>(row);
            const int height = entry->CaptionHeight();
            entry->setGeometry(Twips::ToPixels(QRect(0, y, NavEntry::Width, height + EntryMargin)));
            entry->show();
            y += height + EntryStep;
        }
    }
    // The last entry reaches below where a next one would begin.
    setMinimumHeight(Twips::ToPixels(y + EntryMargin - EntryStep));
    Q_EMIT LaidOut();
}

int NavItems::IndexOf(const QObject *entry) const
{
    const auto found = std::ranges::find(entries, entry);
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

void NavItems::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        LayOut();
    QWidget::changeEvent(event);
}

} // namespace Tesk
