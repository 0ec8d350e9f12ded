#include "tools/songs/SongFile.h"

#include <algorithm>

namespace songs {

namespace {

constexpr int kTicks = 480;     // to a quarter note
constexpr int kSixteenth = 120; // ticks
constexpr int kBreath = 10;     // a note ends that much before the next may begin
constexpr int kTail = 2 * kTicks;

// Track events, in any order: those of one moment keep the order of rank, and then that of their writing.
struct Event {
    int tick = 0;
    int rank = 0; // ends of notes go before beginnings
    Bytes bytes;
};

void AddNumber(Bytes &bytes, std::uint32_t value, int width)
{
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
    }
}

void AddLength(Bytes &bytes, std::uint32_t value)
{
    for (int shift = 21; shift > 0; shift -= 7) {
        if (value >> shift != 0) {
            bytes.push_back(static_cast<std::uint8_t>(0x80 | ((value >> shift) & 0x7F)));
        }
    }
    bytes.push_back(static_cast<std::uint8_t>(value & 0x7F));
}

Bytes Meta(std::uint8_t type, const Bytes &content)
{
    Bytes bytes{0xFF, type};
    AddLength(bytes, static_cast<std::uint32_t>(content.size()));
    bytes.insert(bytes.end(), content.begin(), content.end());
    return bytes;
}

Bytes Text(std::uint8_t type, const std::string &text)
{
    return Meta(type, Bytes(text.begin(), text.end()));
}

Bytes Short(int status, int channel, int first, int second)
{
    return {static_cast<std::uint8_t>(status | (channel - 1)), static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(second)};
}

void AddTrack(Bytes &file, std::vector<Event> events)
{
    std::ranges::stable_sort(events, {}, [](const Event &event) { return std::pair(event.tick, event.rank); });
    Bytes track;
    int now = 0;
    for (const Event &event : events) {
        AddLength(track, static_cast<std::uint32_t>(event.tick - now));
        track.insert(track.end(), event.bytes.begin(), event.bytes.end());
        now = event.tick;
    }
    AddLength(track, kTail); // so that the last notes ring out
    const Bytes end = Meta(0x2F, {});
    track.insert(track.end(), end.begin(), end.end());
    file.insert(file.end(), {'M', 'T', 'r', 'k'});
    AddNumber(file, static_cast<std::uint32_t>(track.size()), 4);
    file.insert(file.end(), track.begin(), track.end());
}

std::vector<Event> Conductor(const Song &song)
{
    constexpr std::uint32_t kMinute = 60'000'000; // microseconds
    std::vector<Event> events{{0, 0, Text(0x03, song.title)}, {0, 0, Text(0x02, "Velluto, MIT licence")}};
    events.push_back({0, 0, Meta(0x58, {static_cast<std::uint8_t>(song.beats), 2, 24, 8})});
    for (const Tempo &tempo : song.tempos) {
        Bytes content;
        AddNumber(content, kMinute / static_cast<std::uint32_t>(tempo.beatsPerMinute), 3);
        events.push_back({tempo.at * kSixteenth, 0, Meta(0x51, content)});
    }
    for (const Mark &mark : song.marks) {
        events.push_back({mark.at * kSixteenth, 0, Text(0x06, mark.text)});
    }
    return events;
}

std::vector<Event> Played(const Song &song, const Part &part)
{
    const int channel = part.channel;
    std::vector<Event> events{{0, 0, Text(0x03, part.name)},
                              {0, 0, {static_cast<std::uint8_t>(0xC0 | (channel - 1)), static_cast<std::uint8_t>(part.program)}},
                              {0, 0, Short(0xB0, channel, 7, part.volume)},
                              {0, 0, Short(0xB0, channel, 10, part.pan)},
                              {0, 0, Short(0xB0, channel, 91, part.reverb)}};
    int turn = 0;
    for (const Note &note : part.line) {
        // A hand is never the same twice; this one is the same on every machine.
        const int velocity = std::clamp(note.velocity + (turn++ * 7) % 5 - 2, 1, 127);
        const auto tick = [&](int sixteenth) { return sixteenth * kSixteenth + (sixteenth % 2 != 0 ? song.swing : 0); };
        events.push_back({tick(note.start), 2, Short(0x90, channel, note.key, velocity)});
        events.push_back({tick(note.start + note.length) - kBreath, 1, Short(0x80, channel, note.key, 64)});
    }
    return events;
}

} // namespace

Bytes MidiFile(const Song &song)
{
    Bytes file{'M', 'T', 'h', 'd'};
    AddNumber(file, 6, 4);
    AddNumber(file, 1, 2);
    AddNumber(file, static_cast<std::uint32_t>(song.parts.size() + 1), 2);
    AddNumber(file, kTicks, 2);
    AddTrack(file, Conductor(song));
    for (const Part &part : song.parts) {
        AddTrack(file, Played(song, part));
    }
    return file;
}

} // namespace songs
