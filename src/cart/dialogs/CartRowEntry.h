#pragma once

#include <QString>

namespace Tesk {

/// One row of the dialog that adds articles by their numbers, as the user filled it.
struct CartRowEntry
{
    QString artNrTesk;        ///< empty for none
    QString artNrCompetition; ///< a competitor's number; empty for none
    qint16 amount = 0;        ///< SmallestAmount to LargestAmount, 0 for none
    QString catNr;            ///< the customer's own category or reference
};

} // namespace Tesk
