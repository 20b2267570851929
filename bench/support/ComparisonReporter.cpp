#include "support/ComparisonReporter.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>

namespace CsBench {

namespace {

std::string format(const char* pattern, double value)
{
    char text[64];
    std::snprintf(text, sizeof text, pattern, value);
    return text;
}

std::string formatTime(double ns)
{
    if (ns < 1e3)
        return format("%.1f ns", ns);
    if (ns < 1e6)
        return format("%.2f us", ns / 1e3);
    if (ns < 1e9)
        return format("%.2f ms", ns / 1e6);
    return format("%.3f s", ns / 1e9);
}

std::string formatFigure(double value, Unit unit, bool isAnchor)
{
    switch (unit) {
    case Unit::Time:
        return formatTime(value);
    case Unit::Throughput:
        return format("%.1f MB/s", value / 1e6);
    case Unit::Bytes:
        return format("%.0f B", value);
    case Unit::CpuShare:
        return formatTime(value) + (isAnchor ? " wall" : " CPU");
    }
    return std::string();
}

std::string formatRatio(double ratio, Unit unit)
{
    return unit == Unit::CpuShare ? format("%.3f%%", ratio * 100.0) : format("%.2fx", ratio);
}

std::string formatTarget(const Comparison& comparison)
{
    if (comparison.goal == Goal::Report)
        return "report";
    const std::string relation = comparison.goal == Goal::AtMost ? "<= " : ">= ";
    return relation + formatRatio(comparison.target, comparison.unit);
}

bool isMet(const Comparison& comparison, double ratio)
{
    return comparison.goal == Goal::AtMost ? ratio <= comparison.target
                                           : ratio >= comparison.target;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
}

struct Row {
    std::string operation, library, anchor, ratio, target, met;
};

Row makeRow(const Comparison& comparison, bool hasLibrary, double library, bool hasAnchor,
            double anchor)
{
    Row row{comparison.operation, "n/a", "-", "-", formatTarget(comparison), "-"};
    if (!hasLibrary)
        return row;
    row.library = formatFigure(library, comparison.unit, false);
    if (comparison.anchor.benchmark.empty())
        return row;
    row.anchor = hasAnchor ? formatFigure(anchor, comparison.unit, true) : "n/a";
    if (!hasAnchor || anchor <= 0.0)
        return row;
    const double ratio = library / anchor;
    row.ratio = formatRatio(ratio, comparison.unit);
    if (comparison.goal != Goal::Report)
        row.met = isMet(comparison, ratio) ? "yes" : "NO";
    return row;
}

void printConsole(const std::string& title, const std::vector<Row>& rows)
{
    std::printf("\n%s\n", title.c_str());
    std::printf("%-62s %14s %16s %9s %9s %4s\n", "operation", "library", "anchor", "ratio",
                "target", "met");
    for (const Row& row : rows)
        std::printf("%-62.62s %14s %16s %9s %9s %4s\n", row.operation.c_str(),
                    row.library.c_str(), row.anchor.c_str(), row.ratio.c_str(),
                    row.target.c_str(), row.met.c_str());
    std::fflush(stdout);
}

void writeMarkdown(const std::string& path, const std::string& title, const std::vector<Row>& rows)
{
    std::ofstream out(path);
    out << "## " << title << "\n\n"
        << "| operation | library | anchor | ratio | target | met? |\n"
        << "|---|---:|---:|---:|---:|:---:|\n";
    for (const Row& row : rows)
        out << "| " << row.operation << " | " << row.library << " | " << row.anchor << " | "
            << row.ratio << " | " << row.target << " | " << row.met << " |\n";
    out << "\n";
    if (!out)
        std::cerr << "Cannot write " << path << "\n";
}

} // namespace

void ComparisonReporter::ReportRuns(const std::vector<Run>& runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.error_occurred)
            continue;
        const bool aggregate = run.run_type == Run::RT_Aggregate;
        if (aggregate && run.aggregate_name != "median")
            continue;
        Sample sample;
        // CPU time of the benchmark thread, which other processes on a busy machine do not
        // inflate; real time where the benchmark waits for other threads (UseRealTime).
        const bool real = run.run_name.time_type == "real_time";
        sample.timeNs = (real ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime())
            / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e9;
        for (const auto& counter : run.counters)
            sample.counters[counter.first] = counter.second.value;
        const std::string& name = run.run_name.function_name;
        if (aggregate)
            medians[name] = sample;
        else
            singles[name].push_back(sample);
    }
}

bool ComparisonReporter::value(const Metric& metric, Unit unit, double& result) const
{
    std::vector<Sample> samples;
    const auto found = medians.find(metric.benchmark);
    if (found != medians.end()) {
        samples.push_back(found->second);
    } else {
        const auto runs = singles.find(metric.benchmark);
        if (runs == singles.end())
            return false;
        samples = runs->second;
    }
    std::vector<double> values;
    for (const Sample& sample : samples) {
        if (metric.counter.empty()) {
            values.push_back(sample.timeNs / metric.items);
            continue;
        }
        const auto counter = sample.counters.find(metric.counter);
        if (counter == sample.counters.end())
            return false;
        values.push_back(unit == Unit::Time || unit == Unit::CpuShare
                             ? counter->second / metric.items : counter->second);
    }
    result = median(values);
    return true;
}

void ComparisonReporter::summarise(const std::string& title,
                                   const std::vector<Comparison>& comparisons,
                                   const std::string& markdownPath) const
{
    std::vector<Row> rows;
    for (const Comparison& comparison : comparisons) {
        double library = 0.0, anchor = 0.0;
        const bool hasLibrary = value(comparison.library, comparison.unit, library);
        const bool hasAnchor = !comparison.anchor.benchmark.empty()
            && value(comparison.anchor, comparison.unit, anchor);
        rows.push_back(makeRow(comparison, hasLibrary, library, hasAnchor, anchor));
    }
    printConsole(title, rows);
    if (!markdownPath.empty())
        writeMarkdown(markdownPath, title, rows);
}

} // namespace CsBench
