// Any bytes as a MIDI file, or as the tracks of one whose frame is much as it should be, since a random change seldom leaves a
// frame true. The file is read and, where it is not refused, walked and played from its beginning and from its middle.
// Nothing is sent that is no MIDI message, times only rise, positions stay within the song, and a stop leaves no note.
#include "fuzz/FuzzProgram.h"

#include "platform/sequencer/MidiFile.h"
#include "platform/sequencer/SongPlayer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <string>

using namespace velluto;
using namespace velluto::fuzz;

namespace {

void Demand(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

struct Listener : SongOutput {
    ChannelStates heard;
    Moment last = 0;

    void Send(std::span<const std::uint8_t> message, Moment due) override
    {
        const bool exclusive = message[0] == 0xF0;
        Demand(message.size() >= 2 && message[0] >= 0x80 && message[0] <= 0xF0 && (message.back() == 0xF7) == exclusive);
        Demand(std::all_of(message.begin() + 1, message.end() - (exclusive ? 1 : 0), [](std::uint8_t byte) { return byte < 0x80; }));
        Demand(due >= last);
        last = due;
        Absorb(heard, message);
    }
};

void PlayOut(SongPlayer &player, Listener &listener, Moment &now)
{
    constexpr int kBurst = 64;
    for (int steps = 0; steps < 2000; ++steps) {
        const std::int32_t position = player.Position(now);
        Demand(position >= 0 && position <= player.Length());
        const SongPlayer::Step step = player.Run(now, kBurst);
        if (step.ended) {
            Demand(player.Position(now) == player.Length());
            break;
        }
        Demand(step.next.has_value());
        now = std::max(now, step.next.value_or(now));
    }
    player.Stop(now);
    Demand(Silencing(listener.heard).empty());
}

void Append(Bytes &bytes, const Bytes &more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

Bytes Word(std::size_t value)
{
    return {static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

// What may stand before a file: nothing, foreign bytes, the head of a RIFF file, some chunks of one.
Bytes Wrapper(FuzzedDataProvider &bytes)
{
    switch (bytes.ConsumeIntegralInRange(0, 7)) {
    case 0:
        return Bytes(bytes.ConsumeIntegralInRange<std::size_t>(1, 8192), 'M');
    case 1:
        return {'R', 'I', 'F', 'F', 0, 0, 0, 0, 'R', 'M', 'I', 'D', 'd', 'a', 't', 'a', bytes.ConsumeIntegral<std::uint8_t>(), 0, 0, 0};
    case 2: {
        Bytes riff{'R', 'I', 'F', 'F', 0, 0, 0, 0, 'R', 'M', 'I', 'D', 'L', 'I', 'S', 'T', 1, 0, 0, 0, 'x', 0};
        Append(riff, {'d', 'a', 't', 'a', bytes.ConsumeIntegral<std::uint8_t>(), 0, 0, 0});
        return riff;
    }
    default:
        return {};
    }
}

// One track more than a file may have.
Bytes TooManyTracks()
{
    Bytes file{'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, 2, 0, 96};
    for (std::size_t i = 0; i <= kMostTracks; ++i) {
        Append(file, {'M', 'T', 'r', 'k', 0, 0, 0, 4, 0, 0xFF, 0x2F, 0});
    }
    return file;
}

// Some tracks in a frame that is true most of the time, most of them with an end.
Bytes FramedFile(FuzzedDataProvider &bytes)
{
    const auto isTrue = [&bytes]() { return bytes.ConsumeIntegralInRange(0, 7) > 0; };
    const auto tracks = bytes.ConsumeIntegralInRange<std::size_t>(1, 4);
    Bytes file = Wrapper(bytes);
    Append(file, {'M', 'T', 'h', 'd', 0, 0, 0, 6});
    Append(file, Word(bytes.PickValueInArray<std::size_t>({1, 0, 2, 3})));
    Append(file, Word(isTrue() ? tracks : bytes.ConsumeIntegralInRange<std::size_t>(0, 5)));
    const auto division = bytes.PickValueInArray<std::size_t>({96, 1, 480, 0x7FFF, 0xE728, 0xE250, 0xFF01, 0, 0xE200});
    if (division == 0xE200 && isTrue()) {
        return TooManyTracks();
    }
    Append(file, Word(division));
    for (std::size_t i = tracks; i > 0; --i) {
        const bool ends = isTrue();
        const std::size_t untrue = isTrue() ? 0 : bytes.ConsumeIntegral<std::uint8_t>();
        const std::size_t length = i == 1 ? bytes.remaining_bytes() : bytes.ConsumeIntegralInRange<std::size_t>(0, bytes.remaining_bytes());
        auto track = bytes.ConsumeBytes<std::uint8_t>(length);
        if (ends) {
            Append(track, {0, 0xFF, 0x2F, 0});
        }
        const std::size_t told = track.size() ^ untrue;
        Append(file, {'M', 'T', 'r', 'k'});
        Append(file, Word(told >> 16));
        Append(file, Word(told));
        Append(file, track);
    }
    return file;
}

Bytes AnyFile(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider bytes(data, size);
    return bytes.ConsumeBool() ? FramedFile(bytes) : bytes.ConsumeRemainingBytes<std::uint8_t>();
}

// Why a file is refused that cannot be read, in the way that its first byte picks.
void ReadFaulty(const Bytes &file)
{
    constexpr const char *kPath = "/home/a.mid";
    MemoryFiles files;
    FaultyFiles faulty(files);
    files.files[kPath] = file;
    const std::uint8_t way = file.empty() ? 0 : file.front() % 5;
    if (way == 0) {
        files.told[kPath] = kLargestMidiFile + 1;
    } else {
        constexpr std::array kErrors = {FileError::kFileNotFound, FileError::kPathNotFound, FileError::kDeviceInputOutput,
                                        FileError::kOther};
        faulty.faults.push_back({way % 2 == 0 ? FileFault::Operation::Read : FileFault::Operation::Open, kPath, kErrors.at(way - 1U)});
    }
    const Refusal refusal = ReadMidiFile(faulty, kPath).refusal;
    Demand(refusal && (SequencerErrorFor(refusal) == SequencerError::kFileNotFound) == (way == 1 || way == 2));
    const Refusal again = ReadMidiFile(faulty, kPath).refusal;
    Demand(way == 0 || again.why == ReadMidiFile(SharedBytes(std::span<const std::uint8_t>(file))).refusal.why);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Bytes given = AnyFile(data, size);
    ReadFaulty(given);
    const MidiFile file = ReadMidiFile(SharedBytes(std::span<const std::uint8_t>(given)));
    Demand(!file.refusal || file.song.tracks.empty());
    if (file.refusal) {
        return 0;
    }
    const Song &song = file.song;
    Demand(song.length >= 0 && song.duration >= 0 && song.duration <= kLongestSong);
    Demand(TimeOf(song, song.endTick) == song.duration);
    for (const SongTrack &track : song.tracks) {
        Demand(track.begin >= 0 && track.begin <= song.endTick);
    }
    Listener listener;
    SongPlayer player(listener);
    Moment now = 1;
    player.Play(now, std::nullopt); // nothing is open yet
    Demand(player.Position(now) == 0 && !player.Run(now, 1).next);
    player.Open(std::make_shared<const Song>(song));
    player.Play(now, std::nullopt);
    (void)player.Run(now, 1);
    player.Pause(now);
    Demand(Silencing(listener.heard).empty());
    player.Play(now, std::nullopt);
    PlayOut(player, listener, now);
    player.Play(now, song.length / 2);
    Demand(player.Position(now) >= std::min(song.length / 2, std::max(song.length - 1, 0)));
    PlayOut(player, listener, now);
    player.Close(now);
    return 0;
}
