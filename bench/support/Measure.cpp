#include "support/Measure.h"

#include <ctime>
#include <malloc.h>

namespace CsBench {

std::int64_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return std::int64_t(info.uordblks) + std::int64_t(info.hblkhd);
}

std::int64_t threadCpuNs()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::int64_t(now.tv_sec) * 1000000000 + now.tv_nsec;
}

} // namespace CsBench
