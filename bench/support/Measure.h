#ifndef CSBENCH_MEASURE_H
#define CSBENCH_MEASURE_H

#include <cstdint>

namespace CsBench {

// Bytes currently allocated from the C heap in all arenas (what new, malloc and Qt's
// containers take), for memory figures by difference.
std::int64_t heapInUse();

// CPU time consumed so far by the calling thread, in nanoseconds.
std::int64_t threadCpuNs();

} // namespace CsBench

#endif
