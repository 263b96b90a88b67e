#include "Clock.h"

#include <ctime>

namespace Tesk::Clock {

double Processor()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

} // namespace Tesk::Clock
