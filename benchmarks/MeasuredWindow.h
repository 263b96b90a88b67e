#pragma once

#include "support/CatalogueWindow.h"

#include <functional>

namespace Tesk {

/// Milliseconds. The wait of the loader's timer, which lies between loading and filling, is in none
/// of them.
struct PageTimes
{
    double loading = 0; ///< from the user's action to the page's completion
    double filling = 0; ///< from the timer's tick to the page with all its contents and pictures
    /// The program's own part: what its thread had of a processor in the action itself and from the
    /// tick until everything was handed to the page.
    double processor = 0;

    double All() const { return loading + filling; }
};

/// The catalogue's window in this process, used as a person would use it. What does not come in
/// time ends the benchmark.
class MeasuredWindow final
{
public:
    explicit MeasuredWindow(const QString &applicationDirectory);

    CatalogueWindow &Catalogue() { return catalogue; }

    void GoHome();
    /// The first leaf of the tree with so many products.
    const CategoryNode *LeafWith(int products);
    /// Makes the entry visible in the tree, ready for Click().
    void PointTo(const CategoryNode *node);
    void Click(const CategoryNode *node);

    /// Of the list, category or details page with this in its address, which the action leads to.
    PageTimes TimesOf(const QString &addressPart, const std::function<void()> &action);

private:
    CatalogueWindow catalogue;
};

} // namespace Tesk
