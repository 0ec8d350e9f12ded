// How cost grows with what an owner has: each command over one, four and sixteen times as much. The table tells sixteen beside four, where
// what is linear is 4.
#include "EditStage.h"
#include "Memory.h"
#include "RatioReporter.h"
#include "edit/Cut.h"
#include "edit/Paste.h"
#include "files/Korf.h"
#include "platform/machine/MachineFiles.h"
#include "platform/sequencer/MidiFile.h"
#include "player/CompilationRows.h"
#include "player/Compilations.h"
#include "player/FilePanel.h"
#include "player/PlayerWindow.h"
#include "tool/Commands.h"
#include "tool/TablesCommands.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <unistd.h>

namespace velluto::bench {
namespace {

namespace fs = std::filesystem;

// Once, four and sixteen times these.
constexpr std::size_t kBytes = std::size_t{15} << 16; // of an instrument's file, which is at most of 16 MiB
constexpr int kFolderFiles = 6250;
constexpr int kCompilationFiles = 625;
constexpr int kEvents = 62500;
constexpr int kTreeFiles = 500;
constexpr int kBanks = 32; // of 128 names, in an instrument definition

// The same thing for each number of times that it is asked for.
template <class Thing, class Make>
Thing &Once(std::map<std::int64_t, std::unique_ptr<Thing>> &made, std::int64_t times, Make make)
{
    std::unique_ptr<Thing> &thing = made[times];
    if (thing == nullptr) {
        thing = make();
    }
    return *thing;
}

EditStage &EditStageOf(const benchmark::State &state)
{
    static std::map<std::int64_t, std::unique_ptr<EditStage>> stages;
    return Once(stages, state.range(), [&] {
        auto stage = std::make_unique<EditStage>(kBytes * static_cast<std::size_t>(state.range()));
        fs::copy(stage->run.At("source.sty"), stage->run.At("another.sty"));
        return stage;
    });
}

void OpenStyles(benchmark::State &state)
{
    EditStage &stage = EditStageOf(state);
    for (auto _ : state) {
        frmStyUN *const window = stage.Open("another.sty");
        benchmark::DoNotOptimize(window->List1.ListCount());
        state.PauseTiming();
        stage.run.Close(*window);
        state.ResumeTiming();
    }
}

void PasteStyles(benchmark::State &state)
{
    EditStage &stage = EditStageOf(state);
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

void CutStyle(benchmark::State &state)
{
    EditStage &stage = EditStageOf(state);
    for (auto _ : state) {
        state.PauseTiming();
        stage.Bring(*stage.source, stage.full, stage.fullRows, 0, 1);
        stage.Files().BuildImage = {};
        state.ResumeTiming();
        mnuTaglia_Click(stage.Files());
    }
}

// A program with its player open, and a folder of so many MIDI files.
struct PlayerStage {
    explicit PlayerStage(std::int64_t files)
    {
        run.Start(test::TestProgram::English);
        run.Choose(run.program.app.frame.mnuMidiPlayer);
        fs::create_directory(run.At("songs"));
        for (std::int64_t i = 0; i < files; ++i) {
            std::ofstream(run.At("songs") + "/Song " + std::to_string(i * 7919 % files) + ".mid") << "MThd";
        }
        ::sync(); // else the system would write them while the first of them are read
    }
    [[nodiscard]] frmMIDIPlayer &Form() { return *run.program.player.window; }

    test::TestProgram run;
};

void OpenSongFolder(benchmark::State &state)
{
    static std::map<std::int64_t, std::unique_ptr<PlayerStage>> stages;
    PlayerStage &stage = Once(stages, state.range(), [&] { return std::make_unique<PlayerStage>(kFolderFiles * state.range()); });
    for (auto _ : state) {
        if (OpenFolder(stage.Form(), stage.run.At("songs")).Failed()) {
            state.SkipWithError("the folder was not opened");
            return;
        }
    }
}

void OpenCompilation(benchmark::State &state)
{
    static std::map<std::int64_t, std::unique_ptr<PlayerStage>> stages;
    PlayerStage &stage = Once(stages, state.range(), [&] { return std::make_unique<PlayerStage>(kCompilationFiles * state.range()); });
    std::string image = "\1" + stage.run.At("songs") + '\0';
    for (std::int64_t i = 0; i < kCompilationFiles * state.range(); ++i) {
        image += "Song " + std::to_string(i) + ".mid" + '\0';
    }
    image += '\xFF';
    test::WriteBytes(stage.run.At("c-Long.cmp"), {image.begin(), image.end()});
    for (auto _ : state) {
        stage.Form().ListMidiCorr.SetRows({});
        if (!LoadCompilation(stage.Form(), "Long")) {
            state.SkipWithError("the compilation was not opened");
            return;
        }
        RebuildCompilationList(stage.Form());
    }
    if (stage.Form().ListMidiCorr.ListCount() != kCompilationFiles * state.range()) {
        state.SkipWithError("not all of its files are there");
    }
}

void ReadSong(benchmark::State &state)
{
    const test::TempFolder folder;
    const std::string path = folder.At("song.mid");
    std::string track;
    for (std::int64_t i = 0; i < kEvents * state.range(); ++i) {
        track += {static_cast<char>(i % 96), static_cast<char>(i % 2 == 0 ? 0x90 : 0x80), static_cast<char>(36 + i % 48), 90};
    }
    track += {0, '\xFF', 0x2F, 0};
    std::string file{"MThd\0\0\0\6\0\0\0\1\1\xE0MTrk", 18};
    for (const int shift : {24, 16, 8, 0}) {
        file += static_cast<char>(track.size() >> static_cast<unsigned>(shift));
    }
    file += track;
    test::WriteBytes(path, {file.begin(), file.end()});
    MachineFiles files;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ReadMidiFile(files, path));
    }
}

// A folder tree of instrument files, and a folder for the user's tables with an instrument definition.
struct ToolStage {
    explicit ToolStage(std::int64_t times)
    {
        for (std::int64_t file = 0; file < kTreeFiles * times; ++file) {
            const fs::path at = fs::path(folder.At("tree")) / ("Set " + std::to_string(file / 20));
            fs::create_directories(at);
            fs::copy(fs::path(VELLUTO_SAMPLES) / "Sparse-64.pcg", at / (std::to_string(file) + ".pcg"));
        }
        std::ofstream definition(folder.At("sounds.ins"));
        definition << ".Patch Names\n";
        for (std::int64_t bank = 0; bank < kBanks * times; ++bank) {
            definition << "[Bank" << bank << "]\n";
            for (int program = 0; program < 128; ++program) {
                definition << program << "=Sound " << bank << '.' << program << '\n';
            }
        }
        definition << ".Instrument Definitions\n[Keys]\n";
        for (std::int64_t bank = 0; bank < kBanks * times; ++bank) {
            definition << "Patch[" << bank << "]=Bank" << bank << '\n';
        }
        fs::create_directory(folder.At("user"));
        for (const char *name : {"Velluto-pcg.txt", "Velluto-sty.txt"}) {
            fs::copy(fs::path(VELLUTO_SAMPLES).parent_path() / name, folder.At("user"));
        }
        ::sync();
    }
    test::TempFolder folder;
};

template <class Command>
void RunTool(benchmark::State &state, Command command, tool::Arguments (*argumentsFor)(const ToolStage &))
{
    static std::map<std::int64_t, std::unique_ptr<ToolStage>> stages;
    const ToolStage &stage = Once(stages, state.range(), [&] { return std::make_unique<ToolStage>(state.range()); });
    MachineFiles files;
    const tool::Arguments arguments = argumentsFor(stage);
    for (auto _ : state) {
        std::ostringstream out;
        const tool::Desk desk{files, out, std::cerr, {}};
        if (command(desk, arguments) != tool::ExitCode::Fine) {
            state.SkipWithError("the command has found something wrong");
            return;
        }
    }
}

void FindInFolders(benchmark::State &state)
{
    RunTool(state, tool::FindItems, [](const ToolStage &stage) {
        tool::Arguments arguments;
        arguments.words = "amber";
        arguments.paths = {stage.folder.At("tree")};
        return arguments;
    });
}

void ListFolders(benchmark::State &state)
{
    RunTool(state, tool::ListFiles, [](const ToolStage &stage) {
        tool::Arguments arguments;
        arguments.paths = {stage.folder.At("tree")};
        return arguments;
    });
}

void ImportSounds(benchmark::State &state)
{
    RunTool(state, tool::ImportTables, [](const ToolStage &stage) {
        tool::Arguments arguments;
        arguments.folder = stage.folder.At("user");
        arguments.paths = {stage.folder.At("sounds.ins")};
        return arguments;
    });
}

void Times(benchmark::internal::Benchmark *bench)
{
    bench->Unit(benchmark::kMillisecond)->Arg(1)->Arg(4)->Arg(16);
}

// Those that read one large file come first, each time into fresh memory; from the others on it is kept. A list of names is a large block
// for the allocator at sixteen times the work and none at four.
BENCHMARK(OpenStyles)->Apply(Times);
BENCHMARK(ReadSong)->Apply(Times);
BENCHMARK(PasteStyles)->Apply(Times)->Setup([](const benchmark::State &) { KeepMemory(); });
BENCHMARK(CutStyle)->Apply(Times);
BENCHMARK(OpenCompilation)->Apply(Times);
BENCHMARK(OpenSongFolder)->Apply(Times);
BENCHMARK(ListFolders)->Apply(Times);
BENCHMARK(FindInFolders)->Apply(Times);
BENCHMARK(ImportSounds)->Apply(Times);

// A quarter more than linear for memory that no longer fits the caches; another tenth where names are sorted, or looked up by the system,
// whose own table of them outgrows the caches as well.
constexpr double kConstant = 1.5; // no body is copied
constexpr double kLinear = 4 * 1.25;
constexpr double kSorted = kLinear * 1.1;

const std::vector<Limit> kLimits = {
    {"Opening and listing Styles of 15 MiB beside 3.75 MiB", "OpenStyles/16", "OpenStyles/4", kLinear},
    {"Paste of fourteen Styles that makes 15 MiB beside 3.75 MiB", "PasteStyles/16", "PasteStyles/4", kConstant},
    {"Cut of one Style from 15 MiB beside 3.75 MiB", "CutStyle/16", "CutStyle/4", kConstant},
    {"Reading a song of 1,000,000 events beside 250,000", "ReadSong/16", "ReadSong/4", kLinear},
    {"Opening a compilation of 10,000 files beside 2,500", "OpenCompilation/16", "OpenCompilation/4", kSorted},
    {"Opening a folder of 100,000 files beside 25,000", "OpenSongFolder/16", "OpenSongFolder/4", kSorted},
    {"velluto-tool list of 8,000 files beside 2,000", "ListFolders/16", "ListFolders/4", kSorted},
    {"velluto-tool find in 8,000 files beside 2,000", "FindInFolders/16", "FindInFolders/4", kSorted},
    {"velluto-tool import of 65,536 names beside 16,384", "ImportSounds/16", "ImportSounds/4", kSorted},
};

} // namespace
} // namespace velluto::bench

int main(int argc, char **argv)
{
    velluto::bench::TakeFreshMemory();
    return velluto::bench::RunBenchmarks(argc, argv, velluto::bench::kLimits) ? 0 : 1;
}
