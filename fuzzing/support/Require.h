#pragma once

#include <cstdio>
#include <cstdlib>

namespace Tesk::Fuzzing {

/// Ends the program when a property does not hold: the fuzzer then keeps the input.
inline void Require(bool holds, const char *property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", property);
    std::abort();
}

} // namespace Tesk::Fuzzing
