#pragma once

#include "generator/Random.h"
#include "generator/Vocabulary.h"

#include <array>
#include <vector>

namespace Tesk {

/// A category as its row in the catalogue wants it.
struct Category
{
    static constexpr std::size_t LevelCount = 5;

    /// The ids count from 1 in the order of the tree.
    int id = 0;
    int treeId = 0;
    /// The parent's tree id, 0 for a category of the first level.
    int parentTreeId = 0;
    Words titles;
    /// Which of its siblings it and its ancestors are, from 1; 0 below its own level.
    std::array<int, LevelCount> levels{};
    std::size_t kind = 0;
    bool isLeaf = true;
};

/// A tree of this many categories in up to four levels: kinds, their shapes, inventors, details.
std::vector<Category> PlanCategories(int count, const Vocabulary &vocabulary, Random &random);

} // namespace Tesk
