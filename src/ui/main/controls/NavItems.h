#pragma once

#include <QWidget>

#include <variant>
#include <vector>

namespace Tesk {

class NavEntry;
class NavHeading;

/// The headings and entries of the left menu, one below the other.
class NavItems final : public QWidget
{
    Q_OBJECT

public:
    NavItems();

    /// From here on AddHeading and AddEntry fill the items from the top, those that exist first.
    void Restart();
    void AddHeading(const QString &caption);
    void AddEntry(const QString &caption, const QString &tag);
    /// Removes the items that were not filled again and gives every item its place.
    void Finish();

    const std::vector<NavEntry *> &Entries() const { return entries; }
    NavEntry *Entry(int index) const { return entries[static_cast<size_t>(index)]; }
    /// The entry's position from 0; −1 for anything else.
    int IndexOf(const QObject *entry) const;

Q_SIGNALS:
    void EntryClicked(int index);
    /// The items have new places; the minimum height is that of all of them.
    void LaidOut();

protected:
    void changeEvent(QEvent *event) override;

private:
    void LayOut();

    std::vector<NavHeading *> headings;
    std::vector<NavEntry *> entries;
    /// Headings and entries from top to bottom.
    std::vector<std::variant<NavHeading *, NavEntry *>> rows;
    size_t mainIndex = 0; ///< the next heading to fill
    size_t subIndex = 0;  ///< the next entry to fill
    int y = 0;            ///< twips
};

} // namespace Tesk
