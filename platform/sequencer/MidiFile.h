// The reader of Standard MIDI Files. Used by the machine's sequencer and by the stand-in that opens real files.
#pragma once

#include "platform/FileStore.h"
#include "platform/Refusal.h"
#include "platform/sequencer/Song.h"

namespace velluto {

// What is more than this is refused, as is a file of more than kMostTracks tracks, however well it is made.
inline constexpr std::size_t kLargestMidiFile = std::size_t{16} << 20; // bytes
inline constexpr std::int64_t kMostEvents = 4'000'000;                 // in all tracks together

struct MidiFile {
    Refusal refusal; // why the file cannot be played; none where it can
    Song song;       // empty with a refusal
};

// Reads a whole file of format 0 or 1. Every event is looked at before the first is played, and a file is refused rather
// than half played:
// - The header has at least six bytes, a format 0 file has exactly one track, and a file has all the tracks that it
//   declares, at least one. Chunks of other kinds are passed over; what follows the last track is not looked at.
// - Time is counted in at least one tick a beat, or in at least one tick a frame of 24, 25, 29 (drop: 29.97) or 30 a second.
// - A track ends with its end-of-track event and with nothing behind it, and the chunk ends with the file at the latest.
// - Numbers have four bytes at most; a status is there before it is left out; data bytes are below 128; a tempo is three
//   bytes and not 0. What other meta events hold is not looked at.
// - The song lasts no longer than a day (kLongestSong).
// Never throws for the bytes' sake, and never reads outside them.
MidiFile ReadMidiFile(SharedBytes bytes);
// The same of a file that is still to be fetched: it may be missing, unreadable or too large.
MidiFile ReadMidiFile(FileStore &files, const std::string &path);

// The number of the error that a refused file gives.
int SequencerErrorFor(const Refusal &refusal);

} // namespace velluto
