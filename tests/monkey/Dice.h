#pragma once

#include <QtGlobal>

#include <iterator>
#include <random>

namespace Tesk {

/// Random choices that are the same in every run with the same seeds, on every system.
class Dice final
{
public:
    /// `seed` of the session, `action` and `turn` within it.
    Dice(quint32 seed, quint32 action, quint32 turn = 0)
    {
        std::seed_seq mixed{seed, action, turn};
        engine.seed(mixed);
    }

    /// 0 to `count` - 1; `count` is above 0.
    int Below(int count) { return static_cast<int>(engine() % static_cast<quint32>(count)); }
    int Between(int least, int most) { return least + Below(most - least + 1); }
    /// True once in `count` times.
    bool OneIn(int count) { return Below(count) == 0; }

    /// One of the elements of a container that is not empty.
    template <typename Container>
    decltype(auto) Pick(const Container &container)
    {
        return *std::next(std::begin(container), Below(static_cast<int>(std::size(container))));
    }

private:
    std::mt19937 engine;
};

} // namespace Tesk
