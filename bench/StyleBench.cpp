// Large Style files: opening and listing one, switching it to its STS and back, and the overview of three of them.
#include "PlainRead.h"
#include "Stage.h"
#include "files/Banks.h"
#include "files/DocumentType.h"
#include "files/frmStyUN.h"
#include "files/frmStyUserAll.h"

#include <benchmark/benchmark.h>

namespace velluto::bench {
namespace {

constexpr int kStyles = 16;
constexpr std::size_t kBank = kFirstStyUserSlot;

// Sixteen Styles, then their sixteen STS.
test::Bytes GroupedFile()
{
    std::vector<int> slots;
    slots.reserve(2 * static_cast<std::size_t>(kStyles));
    for (int entry = 0; entry < 2 * kStyles; ++entry) {
        slots.push_back(entry % kStyles);
    }
    return LargeFile(slots);
}

// Three files, tied to the banks User 1 to 3.
struct StyleStage : Stage {
    StyleStage()
    {
        const test::Bytes bytes = GroupedFile();
        for (std::size_t slot = kBank; slot <= kLastStyUserSlot; ++slot) {
            paths.push_back(Put("large" + std::to_string(slot) + ".sty", bytes));
            run.program.app.settings.StyDocTable[slot].Path.Set(paths.back());
        }
    }
    void Close(Form &window)
    {
        run.program.app.children.Unload(window);
        run.program.app.children.Sweep();
    }
    std::vector<std::string> paths;
};

StyleStage &TheStage()
{
    static StyleStage stage;
    return stage;
}

void PlainReadOfStyle(benchmark::State &state)
{
    const std::string &path = TheStage().paths.front();
    for (auto _ : state) {
        ReadPlainly(path);
    }
}

frmStyUserAll &Overview(StyleStage &stage)
{
    return dynamic_cast<frmStyUserAll &>(*stage.files.overviews[1]);
}

// From the command to the window with its rows, and its close, as the plain read gives its memory back too.
void OpenStyle(benchmark::State &state)
{
    StyleStage &stage = TheStage();
    for (auto _ : state) {
        mnuStyUser_Click(stage.files, kFirstStyUserSlot);
        if (RightTrimmed(dynamic_cast<frmStyUN &>(*stage.files.styles.windows[kBank]).List1.Row(kStyles - 1)).empty()) {
            state.SkipWithError("the last Style is not listed");
            break;
        }
        stage.Close(dynamic_cast<frmStyUN &>(*stage.files.styles.windows[kBank]));
    }
}

void SwitchSts(benchmark::State &state)
{
    StyleStage &stage = TheStage();
    mnuStyUser_Click(stage.files, kFirstStyUserSlot);
    auto &window = dynamic_cast<frmStyUN &>(*stage.files.styles.windows[kBank]);
    for (auto _ : state) {
        Press(window.CommSTS);
        Press(window.CommSTS);
        benchmark::DoNotOptimize(window.List1.ListCount());
    }
    stage.Close(window);
}

void PlainReadOfThree(benchmark::State &state)
{
    for (auto _ : state) {
        for (const std::string &path : TheStage().paths) {
            ReadPlainly(path);
        }
    }
}

void OpenStyleOverview(benchmark::State &state)
{
    StyleStage &stage = TheStage();
    for (auto _ : state) {
        ShowStyleOverview(stage.files, ViewKind::StyleOverview);
        if (Overview(stage).List1[3].ListCount() != kStyles) {
            state.SkipWithError("the third file is not listed");
            break;
        }
        stage.Close(Overview(stage));
    }
}

BENCHMARK(PlainReadOfStyle)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenStyle)->Unit(benchmark::kMillisecond);
BENCHMARK(SwitchSts)->Unit(benchmark::kMicrosecond);
BENCHMARK(PlainReadOfThree)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenStyleOverview)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace velluto::bench
