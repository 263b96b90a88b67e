#pragma once

#include "browser/UserPress.h"

#include <QUrl>

namespace Tesk {

/// Whether they differ in their queries and fragments at most.
bool IsSamePage(const QUrl &one, const QUrl &other);

/// The way from the page that is shown to one that the program has asked for. A page that opens
/// itself again and again would end the load of the other one: what it opens meanwhile is refused,
/// unless the user has pressed something since, and the load is taken up again. From a
/// page to itself (IsSamePage) there is no departure.
class Departure final
{
public:
    /// Loads taken up in a row.
    static constexpr int MostLoads = 50;

    /// `from` is empty before the first page.
    void Begin(const QUrl &from, const QUrl &to);
    void End();
    /// `shown` is the page that is shown now.
    void Continue(const QUrl &shown);

    /// Whether the page may not open another one now.
    bool Refuses(const QUrl &shown);
    /// Whether the last answer of Refuses() was the first refusal of its load.
    bool IsFirstRefusal() const { return refusals == 1; }

    /// A load has ended without a page. What is to be loaded again, empty for nothing.
    QUrl TakeUp();

private:
    QUrl left;
    QUrl next;
    int refusals = 0;
    int loads = 0;
    UserPress presses;
};

} // namespace Tesk
