#pragma once

#include <cstddef>
#include <random>
#include <vector>

namespace Tesk {

/// Random choices that are the same on every platform for the same seed, which the distributions of
/// the standard library are not.
class Random final
{
public:
    explicit Random(unsigned seed);

    /// A number from 0 up to but not including the bound, which is at least 1.
    int Below(int bound);

    /// True once in so many calls.
    bool OneIn(int calls) { return Below(calls) == 0; }

    template <typename Item>
    const Item &Pick(const std::vector<Item> &items)
    {
        return items.at(static_cast<std::size_t>(Below(static_cast<int>(items.size()))));
    }

private:
    std::mt19937 engine;
};

} // namespace Tesk
