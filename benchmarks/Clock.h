#pragma once

#include <chrono>

/// Times in milliseconds.
namespace Tesk::Clock {

/// By the clock that a page's own, `performance.timeOrigin + performance.now()`, can be compared
/// with.
inline double Now()
{
    using Milliseconds = std::chrono::duration<double, std::milli>;
    return Milliseconds(std::chrono::system_clock::now().time_since_epoch()).count();
}

/// The time that this thread has had of a processor.
double Processor();

} // namespace Tesk::Clock
