#include "platform/sequencer/MidiFile.h"

#include "platform/Sequencer.h"
#include "platform/sequencer/TrackReader.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace velluto {

namespace {

using Bytes = std::span<const std::uint8_t>;
using Why = Refusal::Why;

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
    std::uint32_t format = 0;
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

Refusal ReadDivision(std::uint32_t word, TimeDivision &division)
{
    division.inFrames = (word & 0x8000U) != 0;
    if (!division.inFrames) {
        division.ticksPerBeat = word;
        return {word != 0 ? Why::None : Why::NoTicks};
    }
    const std::optional<Ratio> frames = FramesPerSecond(static_cast<int>(word >> 8) - 0x100);
    const std::int64_t ticksPerFrame = word & 0xFFU;
    if (!frames || ticksPerFrame == 0) {
        return {Why::NoFrameLength};
    }
    division.ticksPerSecond = {frames->above * ticksPerFrame, frames->below};
    return {};
}

// Takes the header off the front of the bytes. Returns the refusal.
Refusal ReadHeader(Bytes &bytes, Header &header)
{
    if (bytes.size() < 4 || !std::ranges::equal(bytes.first(4), std::string_view("MThd"))) {
        return {Why::NoMidiFile};
    }
    const std::optional<Chunk> chunk = TakeChunk(bytes);
    if (!chunk || chunk->content.size() < kHeaderLength) {
        return {Why::HeaderShort};
    }
    const Bytes content = chunk->content;
    header.format = BigEndian(content.subspan(0, 2));
    header.tracks = BigEndian(content.subspan(2, 2));
    if (header.format == 2) {
        return {Why::FormatTwo};
    }
    if (header.format > 2) {
        return {Why::UnknownFormat, header.format};
    }
    if (header.tracks == 0 || (header.format == 0 && header.tracks != 1)) {
        return {Why::CountOfTracks, header.format, header.tracks};
    }
    return ReadDivision(BigEndian(content.subspan(4, 2)), header.division);
}

// Finds the tracks that the header declares. Returns the refusal.
Refusal FindTracks(Bytes bytes, std::size_t declared, std::vector<Bytes> &tracks)
{
    if (declared > kMostTracks) {
        return {Why::TooManyTracks, kMostTracks};
    }
    while (tracks.size() < declared) {
        const bool more = bytes.size() >= kChunkHead;
        const std::optional<Chunk> chunk = TakeChunk(bytes);
        if (!chunk) {
            return more ? Refusal{Why::TrackShort, tracks.size() + 1} : Refusal{Why::TrackMissing, tracks.size() + 1, declared};
        }
        if (chunk->isHeader) {
            return {Why::SecondHeader};
        }
        if (chunk->isTrack) {
            tracks.push_back(chunk->content);
        }
    }
    return {};
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
        if (event.kind == TrackEvent::Kind::Meta && event.type == MetaType::kTempo) {
            survey.tempo.push_back({tick, BigEndian(event.data)});
        } else if (event.kind == TrackEvent::Kind::End) {
            survey.endTick = std::max(survey.endTick, tick);
            return TrackFault::None;
        }
    }
}

Refusal ReadTracks(const Header &header, Song &song)
{
    Survey survey;
    for (std::size_t i = 0; i < song.tracks.size(); ++i) {
        if (const TrackFault fault = SurveyTrack(song.tracks[i], survey); fault != TrackFault::None) {
            return {fault, i + 1};
        }
    }
    if (survey.events > kMostEvents) {
        return {Why::TooManyEvents, kMostEvents};
    }
    std::ranges::stable_sort(survey.tempo, {}, &TempoChange::tick);
    return SetTime(song, header.division, survey.tempo, survey.endTick) ? Refusal{} : Refusal{Why::TooLong};
}

} // namespace

MidiFile ReadMidiFile(SharedBytes bytes)
{
    MidiFile result;
    if (bytes.size() > kLargestMidiFile) {
        result.refusal = {Why::TooLarge, kLargestMidiFile >> 20};
        return result;
    }
    Bytes rest = bytes.View();
    Header header;
    result.refusal = ReadHeader(rest, header);
    if (!result.refusal) {
        result.refusal = FindTracks(rest, header.tracks, result.song.tracks);
    }
    if (!result.refusal) {
        result.refusal = ReadTracks(header, result.song);
    }
    if (!result.refusal) {
        result.song.file = std::move(bytes);
    } else {
        result.song = {};
    }
    return result;
}

MidiFile ReadMidiFile(FileStore &files, const std::string &path)
{
    constexpr RuntimeError kTooLarge{-1}; // no file store gives it
    SharedBytes bytes;
    switch (ReadWhole(files, path, {kLargestMidiFile, kTooLarge}, bytes).number) {
    case 0:
        return ReadMidiFile(std::move(bytes));
    case FileError::kFileNotFound:
    case FileError::kPathNotFound:
        return {{Why::NotFound}, {}};
    case kTooLarge.number:
        return {{Why::TooLarge, kLargestMidiFile >> 20}, {}};
    default:
        return {{Why::NotReadable}, {}};
    }
}

int SequencerErrorFor(const Refusal &refusal)
{
    return refusal.why == Why::NotFound ? SequencerError::kFileNotFound : SequencerError::kInvalidFile;
}

} // namespace velluto
