#ifndef CSBENCH_COMPARISONREPORTER_H
#define CSBENCH_COMPARISONREPORTER_H

#include "support/Comparison.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace CsBench {

// Prints the usual console output and keeps each benchmark's median (or, without repetitions,
// its single run), so that the comparisons can be made once every benchmark has run.
class ComparisonReporter : public benchmark::ConsoleReporter
{
public:
    explicit ComparisonReporter(OutputOptions options) : ConsoleReporter(options) {}

    void ReportRuns(const std::vector<Run>& runs) override;

    // Writes the comparison table to the console and, when markdownPath is not empty, a
    // Markdown section to that file.
    void summarise(const std::string& title, const std::vector<Comparison>& comparisons,
                   const std::string& markdownPath) const;

private:
    struct Sample {
        double timeNs = 0.0;
        std::map<std::string, double> counters;
    };

    bool value(const Metric& metric, Unit unit, double& result) const;

    std::map<std::string, Sample> medians;
    std::map<std::string, std::vector<Sample>> singles;
};

} // namespace CsBench

#endif
