#include "generator/Random.h"

namespace Tesk {

Random::Random(unsigned seed)
    : engine(seed)
{}

int Random::Below(int bound)
{
    // The slight favour for small numbers does not matter here.
    return static_cast<int>(engine() % static_cast<unsigned>(bound));
}

} // namespace Tesk
