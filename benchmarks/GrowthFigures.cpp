// An hour's browsing in fast motion: one page after the other without anybody reading them, and how
// the memory of all processes grows by it.

#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "MeasuredWindow.h"
#include "ProcessTree.h"
#include "Visitor.h"

#include <QCoreApplication>

namespace Tesk {

namespace {

/// Until then everything has been used once.
constexpr int FirstChanges = 200;
/// What the pages leave behind is cleared away in intervals: one look at the memory says little.
constexpr int ChangesOfAReading = 100;
constexpr int ChangesBetweenLooks = 10;

/// The memory while so many pages change, in megabytes.
double MemoryOver(Visitor &visitor, int changes)
{
    std::vector<double> looks;
    for (int change = 1; change <= changes; ++change) {
        visitor.ChangePage();
        if (change % ChangesBetweenLooks == 0)
            looks.push_back(ProcessTree::Memory(QCoreApplication::applicationPid()));
    }
    return Median(looks);
}

} // namespace

void MeasureGrowth(const Extent &extent)
{
    MeasuredWindow window(Folders::Limit);
    Visitor visitor(window);
    MemoryOver(visitor, FirstChanges);
    const double early = MemoryOver(visitor, ChangesOfAReading);
    MemoryOver(visitor, extent.pageChanges - FirstChanges - 2 * ChangesOfAReading);
    const double late = MemoryOver(visitor, ChangesOfAReading);
    PrintRow({QStringLiteral("growth of memory in %1 page changes").arg(extent.pageChanges),
              Unit::Percent,
              5,
              {(late / early - 1) * 100},
              QStringLiteral("%1 MB after the first %2 changes, %3 MB at the end")
                  .arg(qRound(early))
                  .arg(FirstChanges)
                  .arg(qRound(late))});
}

} // namespace Tesk
