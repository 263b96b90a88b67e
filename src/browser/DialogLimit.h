#pragma once

#include "browser/UserPress.h"

#include <QElapsedTimer>

namespace Tesk {

/// Keeps a page from holding the user with dialog after dialog. A dialog is one of a row when it
/// comes within a second of the end of the last one and the user has pressed no key and no button
/// of the mouse since; of a row, the first five open. Whatever comes after them is refused until
/// the page has been quiet for a second.
class DialogLimit final
{
public:
    static constexpr int LongestRow = 5;
    static constexpr int QuietTime = 1000; // milliseconds

    /// Whether the next dialog may open. One that may must be followed by Ended().
    bool Allows();
    /// The dialog was closed.
    void Ended();
    /// Whether the last answer of Allows() was the first refusal of its row.
    bool IsFirstRefusal() const { return isFirstRefusal; }

private:
    UserPress presses;
    QElapsedTimer sinceLast;
    int inRow = 0;
    bool isFirstRefusal = false;
};

} // namespace Tesk
