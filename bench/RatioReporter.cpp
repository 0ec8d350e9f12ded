#include "RatioReporter.h"

#include <cstdio>

namespace velluto::bench {

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    constexpr double kMicrosecondsInSecond = 1e6;
    for (const Run &run : runs) {
        const bool isMedian = run.aggregate_name == "median";
        if (isMedian || run.run_type == Run::RT_Iteration) {
            const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
            const std::string &argument = run.run_name.args;
            taken_[run.run_name.function_name + (argument.empty() ? "" : "/" + argument)] =
                run.GetAdjustedRealTime() / unit * kMicrosecondsInSecond;
        }
    }
    ConsoleReporter::ReportRuns(runs);
}

bool RatioReporter::PrintTable(const std::vector<Limit> &limits) const
{
    bool all = true;
    std::printf("\n%-58s %12s %10s\n", "", "measured", "limit");
    for (const Limit &limit : limits) {
        const auto measured = taken_.find(limit.measured);
        const auto yardstick = taken_.find(limit.yardstick);
        if (measured == taken_.end() || (!limit.yardstick.empty() && yardstick == taken_.end())) {
            continue; // filtered out of this run
        }
        const bool isRatio = !limit.yardstick.empty();
        const double value = isRatio ? measured->second / yardstick->second : measured->second;
        const char *unit = isRatio ? "times" : "us   ";
        all = all && value <= limit.most;
        std::printf("%-58s %6.2f %s %4.2f %s%s\n", limit.what.c_str(), value, unit, limit.most, unit, value <= limit.most ? "" : "  OVER");
    }
    return all;
}

bool RunBenchmarks(int argc, char **argv, const std::vector<Limit> &limits)
{
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.PrintTable(limits);
}

} // namespace velluto::bench
