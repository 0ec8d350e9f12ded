#include "platform/sequencer/MidiFile.h"

#include "platform/sequencer/TrackReader.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace velluto {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kChunkHead = 8; // four letters and a length of four bytes
constexpr std::size_t kHeaderLength = 6;

std::uint32_t BigEndian(Bytes bytes)
{
    std::uint32_t value = 0;
    for (const std::uint8_t byte : bytes) {
        value = value << 8 | byte;
    }
    return value;
}

struct Chunk {
    bool isHeader = false;
    bool isTrack = false;
    Bytes content;
};

// Takes the next chunk off the front of the bytes; nothing where they do not hold a whole one.
std::optional<Chunk> TakeChunk(Bytes &bytes)
{
    if (bytes.size() < kChunkHead) {
        return {};
    }
    const auto is = [&](std::string_view name) { return std::equal(name.begin(), name.end(), bytes.begin()); };
    const std::size_t length = BigEndian(bytes.subspan(4, 4));
    if (bytes.size() - kChunkHead < length) {
        return {};
    }
    const Chunk chunk{is("MThd"), is("MTrk"), bytes.subspan(kChunkHead, length)};
    bytes = bytes.subspan(kChunkHead + length);
    return chunk;
}

struct Header {
    int format = 0;
    std::size_t tracks = 0;
    TimeDivision division;
};

// Frames a second as the file writes them, as a negative number. Nothing for a number that stands for none.
std::optional<Ratio> FramesPerSecond(int written)
{
    switch (written) {
    case -24:
    case -25:
    case -30:
        return Ratio{-written, 1};
    case -29:
        return Ratio{30000, 1001};
    default:
        return {};
    }
}

std::string ReadDivision(std::uint32_t word, TimeDivision &division)
{
    division.inFrames = (word & 0x8000U) != 0;
    if (!division.inFrames) {
        division.ticksPerBeat = word;
        return word != 0 ? "" : "The MIDI file is damaged: it counts no ticks to a beat.";
    }
    const std::optional<Ratio> frames = FramesPerSecond(static_cast<int>(word >> 8) - 0x100);
    const std::int64_t ticksPerFrame = word & 0xFFU;
    if (!frames || ticksPerFrame == 0) {
        return "The MIDI file is damaged: it counts time in frames of no known length.";
    }
    division.ticksPerSecond = {frames->above * ticksPerFrame, frames->below};
    return {};
}

// Takes the header off the front of the bytes. Returns the refusal.
std::string ReadHeader(Bytes &bytes, Header &header)
{
    if (bytes.size() < 4 || !std::ranges::equal(bytes.first(4), std::string_view("MThd"))) {
        return "This is not a MIDI file.";
    }
    const std::optional<Chunk> chunk = TakeChunk(bytes);
    if (!chunk || chunk->content.size() < kHeaderLength) {
        return "The MIDI file is damaged: its header is cut short.";
    }
    const Bytes content = chunk->content;
    header.format = static_cast<int>(BigEndian(content.subspan(0, 2)));
    header.tracks = BigEndian(content.subspan(2, 2));
    if (header.format == 2) {
        return "MIDI files of format 2 cannot be played.";
    }
    if (header.format > 2) {
        return "The MIDI file is of an unknown format (" + std::to_string(header.format) + ").";
    }
    if (header.tracks == 0 || (header.format == 0 && header.tracks != 1)) {
        return "The MIDI file is damaged: a file of format " + std::to_string(header.format) + " with " + std::to_string(header.tracks) +
               " tracks.";
    }
    return ReadDivision(BigEndian(content.subspan(4, 2)), header.division);
}

// Finds the tracks that the header declares. Returns the refusal.
std::string FindTracks(Bytes bytes, std::size_t declared, std::vector<Bytes> &tracks)
{
    if (declared > kMostTracks) {
        return "The MIDI file has more than " + std::to_string(kMostTracks) + " tracks.";
    }
    while (tracks.size() < declared) {
        const bool more = bytes.size() >= kChunkHead;
        const std::optional<Chunk> chunk = TakeChunk(bytes);
        const std::string number = std::to_string(tracks.size() + 1);
        if (!chunk) {
            return more ? "The MIDI file is damaged: track " + number + " is cut short."
                        : "The MIDI file is damaged: track " + number + " of " + std::to_string(declared) + " is missing.";
        }
        if (chunk->isHeader) {
            return "The MIDI file is damaged: it has a second header.";
        }
        if (chunk->isTrack) {
            tracks.push_back(chunk->content);
        }
    }
    return {};
}

const char *Words(TrackFault fault)
{
    switch (fault) {
    case TrackFault::None:
        break;
    case TrackFault::EndsInEvent:
        return "ends in the middle of an event.";
    case TrackFault::NumberTooLong:
        return "holds a number of more than four bytes.";
    case TrackFault::NoStatus:
        return "holds data that belong to no event.";
    case TrackFault::UnknownStatus:
        return "holds an event that has no place in a file.";
    case TrackFault::HighData:
        return "holds a data byte above 127.";
    case TrackFault::BadTempo:
        return "holds a tempo that is none.";
    case TrackFault::BadEnd:
        return "has an end that is not empty.";
    case TrackFault::EndMissing:
        return "has no end.";
    case TrackFault::EndEarly:
        return "goes on after its end.";
    }
    return "";
}

// What all tracks together come to.
struct Survey {
    std::int64_t events = 0;
    std::int64_t endTick = 0;
    std::vector<TempoChange> tempo;
};

TrackFault SurveyTrack(Bytes bytes, Survey &survey)
{
    TrackReader reader(bytes);
    TrackEvent event;
    std::int64_t tick = 0;
    for (;;) {
        reader.PassChannelMessages(tick, survey.events);
        std::uint32_t delta = 0;
        TrackFault fault = reader.ReadDelta(delta);
        if (fault == TrackFault::None) {
            fault = reader.ReadEvent(event);
        }
        if (fault != TrackFault::None) {
            return fault;
        }
        tick += delta;
        ++survey.events;
        if (event.kind == TrackEvent::Kind::Meta && event.bytes[1] == MetaType::kTempo) {
            survey.tempo.push_back({tick, BigEndian(event.data)});
        } else if (event.kind == TrackEvent::Kind::End) {
            survey.endTick = std::max(survey.endTick, tick);
            return TrackFault::None;
        }
    }
}

std::string ReadTracks(const Header &header, Song &song)
{
    Survey survey;
    for (std::size_t i = 0; i < song.tracks.size(); ++i) {
        if (const TrackFault fault = SurveyTrack(song.tracks[i], survey); fault != TrackFault::None) {
            return "The MIDI file is damaged: track " + std::to_string(i + 1) + " " + Words(fault);
        }
    }
    if (survey.events > kMostEvents) {
        return "The MIDI file has more than " + std::to_string(kMostEvents) + " events.";
    }
    std::ranges::stable_sort(survey.tempo, {}, &TempoChange::tick);
    return SetTime(song, header.division, survey.tempo, survey.endTick) ? "" : "The MIDI file lasts longer than a day.";
}

} // namespace

MidiFile ReadMidiFile(SharedBytes bytes)
{
    MidiFile result;
    if (bytes.size() > kLargestMidiFile) {
        result.refusal = "The MIDI file is larger than " + std::to_string(kLargestMidiFile >> 20) + " MB.";
        return result;
    }
    Bytes rest = bytes.View();
    Header header;
    result.refusal = ReadHeader(rest, header);
    if (result.refusal.empty()) {
        result.refusal = FindTracks(rest, header.tracks, result.song.tracks);
    }
    if (result.refusal.empty()) {
        result.refusal = ReadTracks(header, result.song);
    }
    if (result.refusal.empty()) {
        result.song.file = std::move(bytes);
    } else {
        result.song = {};
    }
    return result;
}

} // namespace velluto
