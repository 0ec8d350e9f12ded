// Where the chunks of a MIDI file lie in whatever bytes hold it. Used by ReadMidiFile. All positions are 0-based; the time
// taken is that of the bytes passed over.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace velluto {

using FileBytes = std::span<const std::uint8_t>;

// Most significant byte first; at most four bytes.
std::uint32_t BigEndian(FileBytes bytes);

// The file from its header's first letter on, which may stand behind some foreign bytes or in a RIFF file of the kind RMID.
// Empty where there is no header.
FileBytes FromHeader(FileBytes file);

struct ChunkHead {
    static constexpr std::size_t kSize = 8; // four letters and a length of four bytes

    bool isHeader = false;
    bool isTrack = false;
    bool fits = false;     // the content is whole
    bool begins = false;   // one may begin here: it is a track, or has a name of printable letters and fits
    std::size_t begin = 0; // of the content
    std::size_t end = 0;   // of the content, as the chunk says; where it does not fit the end of the bytes
};
ChunkHead ChunkAt(FileBytes file, std::size_t at);

// Whether the position is one at which a chunk may end: another begins there, or the bytes end.
bool IsBoundary(FileBytes file, std::size_t at);

// The position of the next letters of a track's head, or the end of the bytes.
std::size_t NextTrack(FileBytes file, std::size_t from);

} // namespace velluto
