// What the user waits for, without the screen: reading and listing a large file beside a plain read of it, and the way
// from a click on a row to the last of its three messages at the device.
#include "RatioReporter.h"
#include "files/Korf.h"
#include "files/Opening.h"
#include "files/ProgramRows.h"
#include "files/frmPcgUN.h"
#include "midi/frmMsgEx.h"
#include "unit/support/TestProgram.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace velluto::bench {
namespace {

constexpr int kPlaces = 128;
constexpr std::size_t kFileLength = 15U << 20;
constexpr int kBankSlot = 9;

// A full bank of 128 Programs, about 15 MiB.
test::Bytes LargeFile()
{
    std::string image;
    BuildHeader(image);
    for (int place = 0; place < kPlaces; ++place) {
        std::string entry(Korf::kEntryLength, '\0');
        const std::string name = "Program " + std::to_string(place);
        entry.replace(0, name.size(), name);
        entry[Korf::kEntrySlot] = static_cast<char>(place);
        image += entry;
    }
    const std::size_t body = (kFileLength - image.size()) / kPlaces;
    ItemTable table{};
    for (std::size_t place = 0; place < kPlaces; ++place) {
        table[place] = static_cast<std::int32_t>(image.size() + 1);
        image.append(body, static_cast<char>(place * 7 + 1));
    }
    BuildDirectory(image, table, kPlaces);
    return {image.begin(), image.end()};
}

// A program with the large file tied to User 1, the bank open, and one output that counts what it gets.
struct Stage {
    Stage()
    {
        test::WriteBytes(path, LargeFile());
        run.Start(test::TestProgram::English);
        mnuDevMIDIOut_Click(run.program.midi, 0);
        // As CommUser does, and the role of a first run.
        run.program.app.settings.PcgDocTable[kBankSlot].Path.Set(path);
        mnuPcgUser_Click(run.program.files, kBankSlot);
    }
    test::TestProgram run;
    std::string path = run.folder->At("large.pcg");
    frmPcgUN &Bank() { return *run.program.files.PcgWindows[kBankSlot]; }
};

Stage &TheStage()
{
    static Stage stage;
    return stage;
}

void PlainRead(benchmark::State &state)
{
    const std::string &path = TheStage().path;
    for (auto _ : state) {
        std::FILE *file = std::fopen(path.c_str(), "rb");
        std::fseek(file, 0, SEEK_END);
        const auto length = static_cast<std::size_t>(std::ftell(file));
        std::rewind(file);
        std::setvbuf(file, nullptr, _IONBF, 0);
        const auto buffer = std::make_unique_for_overwrite<std::uint8_t[]>(length);
        benchmark::DoNotOptimize(std::fread(buffer.get(), 1, length, file));
        benchmark::DoNotOptimize(buffer.get());
        std::fclose(file);
    }
}

void ReadInstrument(benchmark::State &state)
{
    Stage &stage = TheStage();
    for (auto _ : state) {
        stage.run.program.files.LoadImage = {};
        benchmark::DoNotOptimize(ReadInstrumentFile(stage.run.program.files, stage.path));
    }
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
    Stage &stage = TheStage();
    ListBox &list = stage.Bank().List1;
    stage.run.midi.sent.clear();
    stage.run.midi.sent.reserve(3);
    int row = 0;
    std::size_t messages = 0;
    for (auto _ : state) {
        row = (row + 1) % kPlaces;
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
    Stage &stage = TheStage();
    Raise(stage.run.program.app.frame.mnuMsgEx.Click);
    stage.run.program.app.children.Activate(stage.Bank());
    ClickRows(state);
    stage.run.program.app.children.Unload(*stage.run.program.midi.monitor);
    stage.run.program.app.children.Sweep();
}

BENCHMARK(PlainRead)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadInstrument)->Unit(benchmark::kMillisecond);
BENCHMARK(ListRows)->Unit(benchmark::kMicrosecond);
BENCHMARK(ClickMonitorClosed)->Unit(benchmark::kMicrosecond);
BENCHMARK(ClickMonitorOpen)->Unit(benchmark::kMicrosecond);

const std::vector<Limit> kLimits = {
    {"ReadInstrumentFile of 15 MiB beside one plain read", "ReadInstrument", "PlainRead", 1.25},
    {"Listing its 128 rows", "ListRows", "", 50},
    {"Row click to the third message, monitor closed", "ClickMonitorClosed", "", 5},
    {"Row click to the third message, monitor open", "ClickMonitorOpen", "", 20},
};

} // namespace
} // namespace velluto::bench

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    velluto::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.PrintTable(velluto::bench::kLimits) ? 0 : 1;
}
