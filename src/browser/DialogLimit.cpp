#include "browser/DialogLimit.h"

#include <algorithm>

namespace Tesk {

bool DialogLimit::Allows()
{
    isFirstRefusal = false;
    // One press, one dialog: the row that a page has begun goes on after it.
    if (presses.Take())
        return true;
    if (!sinceLast.isValid() || sinceLast.hasExpired(QuietTime))
        inRow = 0;
    // Counts no further than a second refusal.
    inRow = std::min(inRow + 1, LongestRow + 2);
    if (inRow <= LongestRow)
        return true;
    isFirstRefusal = inRow == LongestRow + 1;
    sinceLast.start();
    return false;
}

void DialogLimit::Ended()
{
    presses.Forget();
    sinceLast.start();
}

} // namespace Tesk
