#pragma once

#include <QString>

#include <array>

namespace Tesk {

/// The pages that the window showed, for the way back: a ring of fixed size, in which the newest
/// entries overwrite the oldest. An entry is a page's address, or the name of a view that is no
/// page. An empty text marks a place without an entry.
class NavigationHistory final
{
public:
    static constexpr qint16 Size = 51;

    /// Whether there is an entry to go back to.
    bool HasMoreEntries() const;

    /// Records a visit, without the fragment behind the last "#". The newest entry again, and the
    /// entry that PopEntry returned last, are not recorded.
    void PushEntry(const QString &entry);

    /// Removes the newest entry and returns the one before it: empty when HasMoreEntries() was
    /// false.
    QString PopEntry();

    /// What PushEntry records of an address: the text before its last "#".
    static QString EntryOf(const QString &address);

    /// The newest entry's place in the ring, 0 to Size - 1.
    qint16 Position() const { return position; }
    /// Empty at first.
    const QString &Newest() const { return entries[static_cast<size_t>(position)]; }

private:
    static qint16 Before(qint16 position);

    std::array<QString, Size> entries;
    qint16 position = 0;
    QString lastPopped;
};

} // namespace Tesk
