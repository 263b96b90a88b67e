#pragma once

#include "core/ResultTable.h"

#include <map>

namespace Tesk {

class CategoryNode;

/// What a page showed beside its address: without it, the way back would lead to a page's address
/// among the products and under the category of a later one.
struct VisitedPlace
{
    /// The products that the page lists, or those that its steps lead through.
    ResultTable rows;
    /// nullptr for the results of a search.
    const CategoryNode *node = nullptr;
    /// A page of details that belongs to no list.
    bool isStandalone = false;
};

/// The places of the history's entries, under the entries' positions.
class VisitedPlaces final
{
public:
    void Keep(int position, const VisitedPlace &place) { places[position] = place; }
    void Forget(int position) { places.erase(position); }
    /// nullptr for an entry without a place.
    const VisitedPlace *At(int position) const
    {
        const auto found = places.find(position);
        return found == places.end() ? nullptr : &found->second;
    }

private:
    std::map<int, VisitedPlace> places;
};

} // namespace Tesk
