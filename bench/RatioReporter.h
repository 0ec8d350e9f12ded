// Holds what each benchmark of a run took and prints it as one table: a time beside the time it may take, or a ratio to
// a yardstick measured in the same run beside the ratio it may have. Of the repetitions of each, the mean of the faster half counts: what
// else the machine does makes some of them slower, and never one faster.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace velluto::bench {

struct Limit {
    std::string what;      // the words of the row
    std::string measured;  // name of a benchmark
    std::string yardstick; // name of the benchmark it is divided by; empty where the limit is a time
    double most = 0;       // ratio, or microseconds
};

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override;
    // Prints the table; false where one of them is over its limit.
    [[nodiscard]] bool PrintTable(const std::vector<Limit> &limits) const;

private:
    // Microseconds of each repetition, by benchmark.
    std::map<std::string, std::vector<double>> taken_;
};

// Runs the benchmarks that the command line names, all without one, and prints the table. False where one is over its limit.
[[nodiscard]] bool RunBenchmarks(int argc, char **argv, const std::vector<Limit> &limits);

} // namespace velluto::bench
