// A large Program file: reading and listing it beside a plain read of it, and the way from a click on a row to the last of
// its three messages at the device.
#include "Memory.h"
#include "PlainRead.h"
#include "Stage.h"
#include "files/Banks.h"
#include "files/ItemRows.h"
#include "files/Opening.h"
#include "files/ReadInstrumentFile.h"
#include "files/frmPcgUN.h"
#include "midi/frmMsgEx.h"

#include <benchmark/benchmark.h>

#include <numeric>

namespace velluto::bench {
namespace {

constexpr std::size_t kPlaces = 128;
constexpr int kBankSlot = 9;

// A bank of 128 Programs tied to User 1 and open.
struct ProgramStage : Stage {
    ProgramStage()
    {
        // As CommUser does, and the role of a first run.
        run.program.app.settings.PcgDocTable[kBankSlot].Path.Set(path);
        mnuPcgUser_Click(files, kBankSlot);
    }
    static test::Bytes FullBank()
    {
        std::vector<int> slots(kPlaces);
        std::iota(slots.begin(), slots.end(), 0);
        return LargeFile(slots);
    }
    std::string path = Put("large.pcg", FullBank());
    frmPcgUN &Bank() { return dynamic_cast<frmPcgUN &>(*files.programs.windows[kBankSlot]); }
};

ProgramStage &TheStage()
{
    static ProgramStage stage;
    return stage;
}

void PlainRead(benchmark::State &state)
{
    const std::string &path = TheStage().path;
    for (auto _ : state) {
        ReadPlainly(path);
    }
}

void ReadInstrument(benchmark::State &state)
{
    ProgramStage &stage = TheStage();
    for (auto _ : state) {
        stage.files.LoadImage = {};
        benchmark::DoNotOptimize(ReadInstrumentFile(stage.files, stage.path));
    }
}

// The same with memory that was used before, as where a file is opened once more. run.sh has a process of their own for the two: what is
// kept once is used by the others too.
void PlainReadAgain(benchmark::State &state)
{
    KeepMemory();
    PlainRead(state);
}

void ReadInstrumentAgain(benchmark::State &state)
{
    KeepMemory();
    ReadInstrument(state);
}

void ListRows(benchmark::State &state)
{
    const FileImage image = TheStage().Bank().Tag.image;
    ListBox &list = TheStage().Bank().List1;
    for (auto _ : state) {
        list.SetRows(ProgramRows(image.View(), ProgramPlaces(image.View())));
        benchmark::DoNotOptimize(list.ListCount());
    }
}

// One click: the selection, the window's test, channel, three messages at the port.
void ClickRows(benchmark::State &state)
{
    ProgramStage &stage = TheStage();
    ListBox &list = stage.Bank().List1;
    stage.run.midi.sent.clear();
    stage.run.midi.sent.reserve(3);
    int row = 0;
    std::size_t messages = 0;
    for (auto _ : state) {
        row = (row + 1) % static_cast<int>(kPlaces);
        ListGesture::ClickRow(list, row, Modifier::None);
        messages += stage.run.midi.sent.size();
        stage.run.midi.sent.clear();
    }
    if (messages != 3 * static_cast<std::size_t>(state.iterations())) {
        state.SkipWithError("a click did not send its three messages");
    }
}

void ClickMonitorClosed(benchmark::State &state)
{
    ClickRows(state);
}

void ClickMonitorOpen(benchmark::State &state)
{
    ProgramStage &stage = TheStage();
    Raise(stage.run.program.app.frame.mnuMsgEx.Click);
    stage.run.program.app.children.Activate(stage.Bank());
    ClickRows(state);
    stage.run.program.app.children.Unload(*stage.run.program.midi.monitor);
    stage.run.program.app.children.Sweep();
}

BENCHMARK(PlainRead)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadInstrument)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainReadAgain)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadInstrumentAgain)->Unit(benchmark::kMillisecond);
BENCHMARK(ListRows)->Unit(benchmark::kMicrosecond);
BENCHMARK(ClickMonitorClosed)->Unit(benchmark::kMicrosecond);
BENCHMARK(ClickMonitorOpen)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace velluto::bench
