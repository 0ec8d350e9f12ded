#include "RatioReporter.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace velluto::bench {

namespace {

double FasterHalf(std::vector<double> times)
{
    std::ranges::sort(times);
    times.resize((times.size() + 1) / 2);
    return std::accumulate(times.begin(), times.end(), 0.0) / static_cast<double>(times.size());
}

} // namespace

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    constexpr double kMicrosecondsInSecond = 1e6;
    std::vector<Run> shown = runs;
    std::erase_if(shown, [](const Run &run) { return run.run_type == Run::RT_Iteration && run.repetitions > 1; });
    for (const Run &run : runs) {
        if (run.run_type == Run::RT_Iteration) {
            const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
            const std::string &argument = run.run_name.args;
            // One that failed took no time, and would be the fastest of all.
            const double time = run.error_occurred ? HUGE_VAL : run.GetAdjustedRealTime() / unit * kMicrosecondsInSecond;
            taken_[run.run_name.function_name + (argument.empty() ? "" : "/" + argument)].push_back(time);
        }
    }
    if (!shown.empty()) {
        ConsoleReporter::ReportRuns(shown);
    }
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
        const double value = FasterHalf(measured->second) / (isRatio ? FasterHalf(yardstick->second) : 1);
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
