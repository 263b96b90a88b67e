#include "browser/Departure.h"

#include <utility>

namespace Tesk {
namespace {

QUrl PageOf(const QUrl &url)
{
    return url.adjusted(QUrl::RemoveQuery | QUrl::RemoveFragment);
}

} // namespace

bool IsSamePage(const QUrl &one, const QUrl &other)
{
    return PageOf(one) == PageOf(other);
}

void Departure::Begin(const QUrl &from, const QUrl &to)
{
    if (next != to)
        loads = 0;
    refusals = 0;
    presses.Forget();
    const bool isToAnother = !IsSamePage(from, to);
    left = isToAnother ? from : QUrl();
    next = isToAnother ? to : QUrl();
}

void Departure::End()
{
    left.clear();
    next.clear();
}

void Departure::Continue(const QUrl &shown)
{
    if (!IsSamePage(shown, left))
        End();
}

bool Departure::Refuses(const QUrl &shown)
{
    Continue(shown);
    if (presses.Take())
        End();
    if (left.isEmpty())
        return false;
    ++refusals;
    return true;
}

QUrl Departure::TakeUp()
{
    // The engine may tell of the end before it asks about what ended it. A load that ended by
    // itself is not taken up.
    if (std::exchange(refusals, 0) == 0)
        return {};
    if (loads == MostLoads) {
        End();
        return {};
    }
    ++loads;
    return next;
}

} // namespace Tesk
