// Cut and Paste of large Style files beside one copy of the file that they make: time, and the memory they take at their
// worst. The whole program runs, with a window for each file.
#include "EditStage.h"
#include "RatioReporter.h"
#include "edit/Cut.h"
#include "edit/EditMenu.h"
#include "edit/Paste.h"
#include "files/Korf.h"

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace {

// Bytes that the program holds from its heap now, and the most it has held.
std::size_t held = 0;
std::size_t mostHeld = 0;

void *Take(std::size_t size)
{
    void *block = std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    held += malloc_usable_size(block);
    mostHeld = std::max(mostHeld, held);
    return block;
}

void GiveBack(void *block) noexcept
{
    held -= block != nullptr ? malloc_usable_size(block) : 0;
    std::free(block);
}

} // namespace

void *operator new(std::size_t size)
{
    return Take(size);
}
void operator delete(void *block) noexcept
{
    GiveBack(block);
}
void operator delete(void *block, std::size_t /*size*/) noexcept
{
    GiveBack(block);
}

namespace velluto::bench {
namespace {

constexpr std::size_t kFileLength = 15U << 20;

EditStage &TheStage()
{
    static EditStage stage(kFileLength);
    return stage;
}

// The yardstick: the result copied once into a block of its own.
void CopyOnce(benchmark::State &state)
{
    const FileImage image = TheStage().full.image;
    for (auto _ : state) {
        const auto copy = std::make_unique_for_overwrite<std::uint8_t[]>(image.size());
        std::memcpy(copy.get(), image.Runs().front().data(), image.size());
        benchmark::DoNotOptimize(copy.get());
    }
}

void PasteFourteen(benchmark::State &state)
{
    EditStage &stage = TheStage();
    stage.CopyFourteen();
    for (auto _ : state) {
        state.PauseTiming();
        stage.BringTarget();
        stage.Files().BuildImage = {};
        state.ResumeTiming();
        mnuIncolla_Click(stage.Files());
    }
    if (CountItems(stage.target->Tag.image.View()) != 2 * kStyles) {
        state.SkipWithError("the Styles did not come in");
    }
}

template <int Count>
void CutStylesOf(benchmark::State &state)
{
    EditStage &stage = TheStage();
    for (auto _ : state) {
        state.PauseTiming();
        stage.Bring(*stage.source, stage.full, stage.fullRows, 0, Count);
        stage.Files().BuildImage = {};
        state.ResumeTiming();
        mnuTaglia_Click(stage.Files());
    }
    if (CountItems(stage.source->Tag.image.View()) != 2 * (kStyles - Count)) {
        state.SkipWithError("the Styles were not cut");
    }
}
void CutOne(benchmark::State &state)
{
    CutStylesOf<1>(state);
}
void CutSixteen(benchmark::State &state)
{
    CutStylesOf<kStyles>(state);
}

void DropEditMenu(benchmark::State &state)
{
    EditStage &stage = TheStage();
    stage.CopyFourteen();
    for (auto _ : state) {
        mnuModifica_Click(stage.Files());
    }
    if (!stage.run.program.app.frame.mnuCopia.enabled) {
        state.SkipWithError("Copy was not offered");
    }
}

BENCHMARK(CopyOnce)->Unit(benchmark::kMillisecond);
BENCHMARK(PasteFourteen)->Unit(benchmark::kMillisecond);
BENCHMARK(CutOne)->Unit(benchmark::kMillisecond);
BENCHMARK(CutSixteen)->Unit(benchmark::kMicrosecond);
BENCHMARK(DropEditMenu)->Unit(benchmark::kMicrosecond);

const std::vector<Limit> kLimits = {
    {"Paste of fourteen Styles that makes 15 MiB, beside a copy", "PasteFourteen", "CopyOnce", 0.5},
    {"Cut of one Style from 15 MiB, beside a copy", "CutOne", "CopyOnce", 0.5},
    {"Cut of sixteen Styles from 15 MiB, beside a copy", "CutSixteen", "CopyOnce", 0.5},
    {"Edit menu on a Style file of 15 MiB", "DropEditMenu", "", 20},
};

// The most that a command held, what was there before included, beside the file of 15 MiB. The clipboard's image and the
// window's are counted.
template <class Command>
double MemoryOf(Command command)
{
    mostHeld = held;
    command();
    return static_cast<double>(mostHeld) / static_cast<double>(kFileLength);
}

bool PrintMemory()
{
    constexpr double kMost = 1.6;
    EditStage &stage = TheStage();
    stage.Files().LoadImage = {};
    stage.CopyFourteen();
    stage.BringTarget();
    stage.Files().BuildImage = {};
    const double paste = MemoryOf([&] { mnuIncolla_Click(stage.Files()); });
    stage.Files().BuildImage = {};
    stage.target->Tag = stage.few;
    stage.Bring(*stage.source, stage.full, stage.fullRows, 0, kStyles);
    const double cut = MemoryOf([&] { mnuTaglia_Click(stage.Files()); });
    std::printf("%-58s %6.2f times %4.2f times%s\n", "Memory of the Paste at its worst, beside the file", paste, kMost,
                paste <= kMost ? "" : "  OVER");
    std::printf("%-58s %6.2f times %4.2f times%s\n", "Memory of the Cut at its worst, beside the file", cut, kMost,
                cut <= kMost ? "" : "  OVER");
    return paste <= kMost && cut <= kMost;
}

} // namespace
} // namespace velluto::bench

int main(int argc, char **argv)
{
    const bool fast = velluto::bench::RunBenchmarks(argc, argv, velluto::bench::kLimits);
    return velluto::bench::PrintMemory() && fast ? 0 : 1;
}
