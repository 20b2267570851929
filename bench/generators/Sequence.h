#ifndef CSBENCH_SEQUENCE_H
#define CSBENCH_SEQUENCE_H

#include <cstdint>

namespace CsBench {

// A small deterministic number sequence (splitmix64): the same fixed start value gives the same
// corpus on every machine and standard library, unlike the distributions of <random>.
class Sequence
{
public:
    explicit Sequence(std::uint64_t start) : state(start) {}

    std::uint64_t next()
    {
        std::uint64_t z = (state += 0x9e3779b97f4a7c15ULL);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return z ^ (z >> 31);
    }

    // A value in [0, bound).
    int below(int bound) { return int(next() % std::uint64_t(bound)); }

    bool chance(int percent) { return below(100) < percent; }

    template <typename T, int N>
    const T& pick(const T (&items)[N]) { return items[below(N)]; }

private:
    std::uint64_t state;
};

} // namespace CsBench

#endif
