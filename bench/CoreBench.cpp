// What the user waits for, without the screen, beside how long it may take.
#include "Memory.h"
#include "RatioReporter.h"

namespace velluto::bench {
namespace {

const std::vector<Limit> kLimits = {
    {"ReadInstrumentFile of 15 MiB beside one plain read", "ReadInstrument", "PlainRead", 1.05},
    {"The same into memory that was used before", "ReadInstrumentAgain", "PlainReadAgain", 1.2},
    {"Listing its 128 rows", "ListRows", "", 50},
    {"Row click to the third message, monitor closed", "ClickMonitorClosed", "", 5},
    {"Row click to the third message, monitor open", "ClickMonitorOpen", "", 20},
    {"Row click, monitor open beside closed", "ClickMonitorOpen", "ClickMonitorClosed", 1.5},
    {"Opening a Style file of 15 MiB beside one plain read", "OpenStyle", "PlainReadOfStyle", 1.3},
    {"Switching it to its STS and back", "SwitchSts", "", 100},
    {"Overview of three such files beside three plain reads", "OpenStyleOverview", "PlainReadOfThree", 1.3},
};

} // namespace
} // namespace velluto::bench

int main(int argc, char **argv)
{
    velluto::bench::TakeFreshMemory();
    return velluto::bench::RunBenchmarks(argc, argv, velluto::bench::kLimits) ? 0 : 1;
}
