#include "browser/DialogLimit.h"

#include <algorithm>

namespace Tesk {

bool DialogLimit::Allows()
{
    if (!sinceLast.isValid() || sinceLast.hasExpired(quietTime))
        inRow = 0;
    // Counts no further than a second refusal.
    inRow = std::min(inRow + 1, longestRow + 2);
    if (inRow <= longestRow)
        return true;
    sinceLast.start();
    return false;
}

void DialogLimit::Ended()
{
    sinceLast.start();
}

} // namespace Tesk
