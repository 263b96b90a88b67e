#include "generator/CategoryPlan.h"

#include <algorithm>

namespace Tesk {

namespace {

/// Room for whatever a maker may put between two categories later.
constexpr int TreeIdStep = 3;
constexpr int FirstTreeId = 500;

constexpr int CategoriesPerKind = 8;
constexpr int MaxShapes = 6;
constexpr int MaxInventors = 3;

Words Joined(const Words &left, const std::string &separator, const Words &right)
{
    Words joined;
    for (std::size_t i = 0; i < LanguageCount; ++i)
        joined[i] = left[i] + separator + right[i];
    return joined;
}

Words InEveryLanguage(const std::string &word)
{
    Words words;
    words.fill(word);
    return words;
}

class Planner final
{
public:
    Planner(const Vocabulary &words, Random &choices)
        : vocabulary(words)
        , random(choices)
    {}

    std::vector<Category> Plan(int count)
    {
        const int kindCount =
            std::clamp(count / CategoriesPerKind, 1, static_cast<int>(vocabulary.kinds.size()));
        for (int i = 0; i < kindCount; ++i) {
            Category category;
            category.kind = static_cast<std::size_t>(i);
            category.titles = vocabulary.kinds[category.kind].name;
            category.levels[0] = i + 1;
            AddTree(category, 0, Share(count, kindCount, i));
        }
        return std::move(categories);
    }

private:
    /// The part of the total that falls to one of several equal parties.
    static int Share(int total, int parties, int party)
    {
        return total / parties + (party < total % parties ? 1 : 0);
    }

    /// Adds the category and below it as many as make up the number.
    void AddTree(Category category, std::size_t level, int count)
    {
        category.id = static_cast<int>(categories.size()) + 1;
        category.treeId = FirstTreeId + TreeIdStep * category.id;
        const int below = count - 1;
        category.isLeaf = below == 0;
        categories.push_back(category);

        const int children = ChildCount(level, below);
        for (int i = 0; i < children; ++i) {
            Category child = category;
            child.parentTreeId = category.treeId;
            child.levels[level + 1] = i + 1;
            child.titles = ChildTitles(category, level, i);
            AddTree(child, level + 1, Share(below, children, i));
        }
    }

    /// The last level takes whatever is left.
    static int ChildCount(std::size_t level, int below)
    {
        if (level == 0)
            return std::min(below, MaxShapes);
        return level == 1 ? std::min(below, MaxInventors) : below;
    }

    Words ChildTitles(const Category &parent, std::size_t level, int child)
    {
        const auto number = static_cast<std::size_t>(child);
        if (level == 0)
            return Joined(parent.titles, ", ", vocabulary.shapes[number]);
        if (level == 1)
            return Joined(vocabulary.kinds[parent.kind].name, " ",
                          InEveryLanguage(random.Pick(vocabulary.inventors)));
        return Joined(parent.titles, ", ", vocabulary.details[number % vocabulary.details.size()]);
    }

    const Vocabulary &vocabulary;
    Random &random;
    std::vector<Category> categories;
};

} // namespace

std::vector<Category> PlanCategories(int count, const Vocabulary &vocabulary, Random &random)
{
    return Planner(vocabulary, random).Plan(count);
}

} // namespace Tesk
