#include "platform/sequencer/MidiFile.h"

#include "platform/Sequencer.h"
#include "platform/sequencer/MidiChunks.h"
#include "platform/sequencer/TrackReader.h"

#include <algorithm>
#include <optional>

namespace velluto {

namespace {

using Why = Refusal::Why;

constexpr std::uint32_t kTicksUntold = 96; // to a beat, where a file does not say

struct Header {
    std::uint32_t format = 1;
    std::size_t tracks = 0; // as declared
    TimeDivision division = {.inFrames = false, .ticksPerBeat = kTicksUntold, .ticksPerSecond = {}};
};

// Frames a second as the file writes them, as a negative number.
Ratio FramesPerSecond(int written)
{
    constexpr int kDropped = -29;
    return written == kDropped ? Ratio{30000, 1001} : Ratio{-written, 1};
}

bool IsUsual(Ratio frames)
{
    return frames.below != 1 || frames.above == 24 || frames.above == 25 || frames.above == 30;
}

// What is wrong with the division is told; one that counts nothing is left as it is.
Refusal ReadDivision(std::uint32_t word, TimeDivision &division)
{
    if (word == 0) {
        return {Why::NoTicks};
    }
    if ((word & 0x8000U) == 0) {
        division.ticksPerBeat = word;
        return {};
    }
    const Ratio frames = FramesPerSecond(static_cast<int>(word >> 8) - 0x100);
    const std::int64_t ticksPerFrame = word & 0xFFU;
    if (ticksPerFrame == 0) {
        return {Why::NoFrameLength};
    }
    division.inFrames = true;
    division.ticksPerSecond = {frames.above * ticksPerFrame, frames.below};
    return {IsUsual(frames) ? Why::None : Why::NoFrameLength};
}

// Reads the chunks of a file one after the other, and puts the song together from what can be played.
class SongReader {
public:
    // The bytes begin with the header.
    explicit SongReader(FileBytes file) : file_(file) {}

    // Why nothing is to be played; else the song has all but its file.
    Refusal Read(Song &song);

private:
    std::size_t ReadHeader();
    std::size_t ReadTrack(const ChunkHead &chunk);
    TrackFault Survey(TrackReader &reader, std::int64_t &tick);
    Refusal Finish(Song &song);
    // Remembers the first thing that is found wrong; behind the declared tracks nothing is.
    void Note(const Refusal &flaw);
    [[nodiscard]] bool HasAllTracks() const { return header_.tracks != 0 && found_ >= header_.tracks; }

    FileBytes file_;
    Header header_;
    Refusal flaw_;
    std::size_t found_ = 0; // tracks
    std::vector<SongTrack> tracks_;
    std::int64_t events_ = 0;
    bool plays_ = false; // a message has come
    std::int64_t endTick_ = 0;
    std::vector<TempoChange> tempo_;
};

void SongReader::Note(const Refusal &flaw)
{
    const bool isBehindLast = header_.tracks != 0 && found_ > header_.tracks;
    if (!flaw_ && !isBehindLast) {
        flaw_ = flaw;
    }
}

// Returns where the header ends. A length that leads to no chunk is untrue: the header then ends where a track begins.
std::size_t SongReader::ReadHeader()
{
    constexpr std::size_t kLength = 6;
    const ChunkHead chunk = ChunkAt(file_, 0);
    if (!chunk.fits) {
        Note({Why::HeaderShort});
    }
    const std::size_t begin = std::min(ChunkHead::kSize, file_.size());
    const std::size_t end = chunk.fits && IsBoundary(file_, chunk.end) ? chunk.end : NextTrack(file_, begin);
    const FileBytes content = file_.subspan(begin, std::min(kLength, end - begin));
    if (content.size() < kLength || chunk.end - chunk.begin < kLength) {
        Note({Why::HeaderShort});
    }
    if (content.size() >= 2) {
        header_.format = BigEndian(content.first(2));
    }
    if (content.size() >= 4) {
        header_.tracks = BigEndian(content.subspan(2, 2));
    }
    if (header_.format > 2) {
        Note({Why::UnknownFormat, header_.format});
    }
    if (header_.tracks == 0 || (header_.format == 0 && header_.tracks != 1)) {
        Note({Why::CountOfTracks, header_.format, header_.tracks});
    }
    if (content.size() == kLength) {
        Note(ReadDivision(BigEndian(content.subspan(4, 2)), header_.division));
    }
    return end;
}

// Reads events until one cannot be read or the track ends; the reader and the tick stand behind the last whole one.
TrackFault SongReader::Survey(TrackReader &reader, std::int64_t &tick)
{
    for (;;) {
        std::int64_t passed = 0;
        reader.PassChannelMessages(tick, passed);
        events_ += passed;
        plays_ = plays_ || passed > 0;
        const TrackReader before = reader;
        TrackEvent event;
        std::uint32_t delta = 0;
        TrackFault fault = reader.ReadDelta(delta);
        if (fault == TrackFault::None) {
            fault = reader.ReadEvent(event);
        }
        if (fault != TrackFault::None) {
            reader = before;
            return fault;
        }
        tick += delta;
        ++events_;
        if (event.flaw != TrackFault::None) {
            Note({event.flaw, found_});
        }
        switch (event.kind) {
        case TrackEvent::Kind::Channel:
        case TrackEvent::Kind::Exclusive:
        case TrackEvent::Kind::Escape:
            plays_ = true;
            break;
        case TrackEvent::Kind::Meta:
            if (event.type == MetaType::kTempo) {
                tempo_.push_back({tick, BigEndian(event.data)});
            }
            break;
        case TrackEvent::Kind::Nothing:
            break;
        case TrackEvent::Kind::End:
            return TrackFault::None;
        }
    }
}

// Returns where to look for the next chunk. A length that leads to no chunk is untrue: a track that has not ended by then
// goes on until another begins, and the next chunk is looked for from where this one was read to.
std::size_t SongReader::ReadTrack(const ChunkHead &chunk)
{
    if (!chunk.fits) {
        Note({Why::TrackShort, found_});
    }
    const bool isTrue = chunk.fits && IsBoundary(file_, chunk.end);
    const std::size_t end = chunk.fits ? chunk.end : NextTrack(file_, chunk.begin);
    const bool isSequence = header_.format == 2;
    const std::int64_t begin = isSequence ? endTick_ : 0;
    if (isSequence) {
        tempo_.push_back({begin, kTempoAtStart});
    }
    TrackReader reader(file_.subspan(chunk.begin, end - chunk.begin));
    const auto at = [&]() { return static_cast<std::size_t>(reader.At() - file_.data()); };
    std::int64_t tick = begin;
    TrackFault fault = Survey(reader, tick);
    Note({fault, found_});
    if (!isTrue && (fault == TrackFault::EndMissing || fault == TrackFault::EndsInEvent)) {
        reader.EndAt(file_.data() + NextTrack(file_, at()));
        fault = Survey(reader, tick);
    }
    if (fault == TrackFault::None && at() < chunk.end) {
        Note({Why::EndEarly, found_});
    }
    tracks_.push_back({file_.subspan(chunk.begin, at() - chunk.begin), begin});
    endTick_ = std::max(endTick_, tick);
    return isTrue ? chunk.end : at();
}

Refusal SongReader::Read(Song &song)
{
    if (file_.empty()) {
        return {Why::NoMidiFile};
    }
    std::size_t at = ReadHeader();
    if (header_.tracks > kMostTracks) {
        Note({Why::TooManyTracks, kMostTracks});
    }
    while (at < file_.size() && found_ <= kMostTracks) {
        const ChunkHead chunk = ChunkAt(file_, at);
        if (chunk.isTrack) {
            ++found_;
            at = ReadTrack(chunk);
        } else if (chunk.begins) {
            Note({chunk.isHeader ? Why::SecondHeader : Why::None});
            at = chunk.end;
        } else {
            // What follows the last track may be anything.
            at = HasAllTracks() ? file_.size() : NextTrack(file_, at + 1);
        }
    }
    return Finish(song);
}

Refusal SongReader::Finish(Song &song)
{
    if (found_ < header_.tracks) {
        Note({Why::TrackMissing, found_ + 1, header_.tracks});
    }
    if (found_ > kMostTracks) {
        return {Why::TooManyTracks, kMostTracks};
    }
    if (events_ > kMostEvents) {
        return {Why::TooManyEvents, kMostEvents};
    }
    if (!plays_ && flaw_) {
        return flaw_;
    }
    song.tracks = std::move(tracks_);
    std::ranges::stable_sort(tempo_, {}, &TempoChange::tick);
    return SetTime(song, header_.division, tempo_, endTick_) ? Refusal{} : Refusal{Why::TooLong};
}

} // namespace

MidiFile ReadMidiFile(SharedBytes bytes)
{
    MidiFile result;
    if (bytes.size() > kLargestMidiFile) {
        result.refusal = {Why::TooLarge, kLargestMidiFile >> 20};
        return result;
    }
    result.refusal = SongReader(FromHeader(bytes.View())).Read(result.song);
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
