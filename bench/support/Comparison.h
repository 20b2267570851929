#ifndef CSBENCH_COMPARISON_H
#define CSBENCH_COMPARISON_H

#include <string>
#include <utility>

namespace CsBench {

// What a figure is and how it is shown.
enum class Unit {
    Time,        // time per iteration (CPU time of the benchmark thread, or real time for
                 // benchmarks that use it), divided by Metric::items
    Throughput,  // the "bytes_per_second" counter of SetBytesProcessed
    Bytes,       // a counter holding a byte count
    CpuShare     // library: a counter in ns of CPU time; anchor: the real time of a benchmark
};

enum class Goal { AtMost, AtLeast, Report };

// One figure out of a benchmark: its time (counter empty) or one of its counters.
struct Metric {
    Metric(std::string benchmark = std::string(), std::string counter = std::string(),
           double items = 1.0)
        : benchmark(std::move(benchmark)), counter(std::move(counter)), items(items) {}

    std::string benchmark;
    std::string counter;
    double items;   // time figures are divided by this (per clone, per command, ...)
};

// One row of the results table: the library's figure, its anchor from the same run, and the
// target on their ratio (library / anchor; for throughput, library speed / anchor speed).
struct Comparison {
    std::string operation;
    Metric library;
    Metric anchor;        // benchmark empty: nothing to compare with
    Unit unit = Unit::Time;
    Goal goal = Goal::Report;
    double target = 0.0;
};

} // namespace CsBench

#endif
