// Any bytes as a MIDI file, read and, where it is not refused, walked and played from its beginning and from its middle.
// Nothing is sent that is no MIDI message, times only rise, positions stay within the song, and a stop leaves no note.
#include "platform/sequencer/MidiFile.h"
#include "platform/sequencer/SongPlayer.h"

#include <algorithm>
#include <cstdlib>
#include <span>

using namespace velluto;

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const MidiFile file = ReadMidiFile(SharedBytes(std::span(data, size)));
    Demand(!file.refusal || file.song.tracks.empty());
    if (file.refusal) {
        return 0;
    }
    const Song &song = file.song;
    Demand(song.length >= 0 && song.duration >= 0 && song.duration <= kLongestSong);
    Demand(TimeOf(song, song.endTick) == song.duration);
    Listener listener;
    SongPlayer player(listener);
    player.Open(std::make_shared<const Song>(song));
    Moment now = 1;
    player.Play(now, std::nullopt);
    PlayOut(player, listener, now);
    player.Play(now, song.length / 2);
    Demand(player.Position(now) >= std::min(song.length / 2, std::max(song.length - 1, 0)));
    PlayOut(player, listener, now);
    player.Close(now);
    return 0;
}
