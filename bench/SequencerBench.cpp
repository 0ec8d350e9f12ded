// What a user waits for who opens a MIDI file of 1 MB: from the command until the length is known, beside a plain read of
// the file.
#include "Memory.h"
#include "PlainRead.h"
#include "RatioReporter.h"
#include "platform/machine/MachineFiles.h"
#include "platform/music/MachineSequencer.h"

#include <fstream>
#include <random>

namespace velluto::bench {
namespace {

constexpr std::size_t kFileLength = std::size_t{1} << 20;
constexpr std::size_t kTracks = 16;
constexpr const char *kPath = "/tmp/velluto-bench.mid";

void Append(std::string &bytes, std::initializer_list<unsigned> more)
{
    for (const unsigned byte : more) {
        bytes += static_cast<char>(byte);
    }
}

// Notes on and off with the times of music, their status left out, as sequencer programs write them.
std::string Track(unsigned channel, std::size_t length, std::mt19937 &random)
{
    constexpr std::array<unsigned, 7> kTimes = {0, 0, 60, 120, 120, 240, 480};
    std::string track;
    Append(track, {0, 0xC0 | channel, 5, 0, 0x90 | channel, 60, 100});
    while (track.size() < length) {
        const unsigned time = kTimes.at(random() % kTimes.size());
        if (time >= 0x80) {
            Append(track, {0x80 | time >> 7});
        }
        Append(track, {time & 0x7F, 36 + static_cast<unsigned>(random() % 48), random() % 4 == 0 ? 0U : 90U});
    }
    Append(track, {0, 0xFF, 0x2F, 0});
    return track;
}

void WriteLargeFile()
{
    std::string file;
    Append(file, {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, kTracks, 0x01, 0xE0});
    std::mt19937 random(1); // NOLINT: the same file each time
    for (unsigned i = 0; i < kTracks; ++i) {
        const std::string track = Track(i, kFileLength / kTracks - 12, random);
        Append(file, {'M', 'T', 'r', 'k', 0, 0});
        Append(file, {static_cast<unsigned>(track.size()) >> 8, static_cast<unsigned>(track.size()) & 0xFF});
        file += track;
    }
    std::ofstream(kPath, std::ios::binary) << file;
}

struct NoOutputs : PlayerOutputs {
    void Show() override {}
    void Move() override {}
    bool Wake() override { return false; }
    void Rest() override {}
    void Send(std::span<const std::uint8_t> /*message*/, TimePoint /*due*/) override {}
};

void PlainRead(benchmark::State &state)
{
    for (auto _ : state) {
        ReadPlainly(kPath);
    }
}

void OpenSong(benchmark::State &state)
{
    MachineFiles files;
    MachineSequencer sequencer(files, std::make_unique<NoOutputs>(), [](const std::function<void()> &) {});
    sequencer.SetFileName(kPath);
    for (auto _ : state) {
        sequencer.SetCommand("open");
        benchmark::DoNotOptimize(sequencer.Length());
        sequencer.SetCommand("close");
    }
    if (sequencer.Length() != 0 || sequencer.Error() != 0) {
        state.SkipWithError("the file was not opened");
    }
}

BENCHMARK(PlainRead)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenSong)->Unit(benchmark::kMicrosecond);

const std::vector<Limit> kLimits = {
    {"Opening a MIDI file of 1 MB beside one plain read", "OpenSong", "PlainRead", 2},
};

} // namespace
} // namespace velluto::bench

int main(int argc, char **argv)
{
    velluto::bench::TakeFreshMemory();
    velluto::bench::WriteLargeFile();
    return velluto::bench::RunBenchmarks(argc, argv, velluto::bench::kLimits) ? 0 : 1;
}
