#pragma once

#include "sources/TableSource.h"

#include <QHash>
#include <QString>

#include <optional>

namespace Tesk {

class Problems;

// What the checks of several tables have in common. Each adds its problem at the row's place.

/// The cell as a whole number from `least` to 32,767, the largest that the program counts to;
/// nothing, and a problem, for anything else.
std::optional<int> CheckWholeNumber(const TableRow &row, QLatin1String column, int least,
                                    Problems &problems);

/// The cell has to be a number with a decimal point; `isOptional` accepts NULL.
void CheckNumber(const TableRow &row, QLatin1String column, bool isOptional, Problems &problems);

/// A name that the pages show: it must be there, without blanks around it, without quotation marks
/// and without characters that would begin a tag or an entity.
void CheckShownText(const TableRow &row, QLatin1String column, Problems &problems);

/// Remembers which line a key stood in first, to report its second line.
class UniqueKeys final
{
public:
    /// `what` names the key in the message, e.g. "the article number \"AB 1\"".
    void Add(const QString &key, const QString &what, const TableRow &row, Problems &problems);

    bool Contains(const QString &key) const { return lines.contains(key); }

private:
    QHash<QString, int> lines;
};

} // namespace Tesk
