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

// Reads a file and plays what can be played of it. Every event is looked at before the first is played.
// - The header may stand behind 8,192 foreign bytes, or in a RIFF file of the kind RMID. What it lacks, or says for nothing, is
//   format 1 and 96 ticks a beat; frames may be as many a second as it likes.
// - All tracks are played together, however many the header declares, those of format 2 one after another, each from 120 beats
//   a minute. Chunks of other kinds are passed over, a further header too. What follows the declared tracks and is no chunk is not
//   looked at. Where a length leads to no chunk, the next track is looked for.
// - A track ends with its end-of-track event, or else behind its last whole event (TrackReader). What follows is passed over.
// Refused is a file without a header, one that has a fault and not a single message, and what exceeds the limits, of which
// one is that a song lasts no longer than a day (kLongestSong). The reason is the first fault.
// Takes time in proportion to the bytes. Never throws for the bytes' sake, and never reads outside them.
MidiFile ReadMidiFile(SharedBytes bytes);
// The same of a file that is still to be fetched: it may be missing, unreadable or too large.
MidiFile ReadMidiFile(FileStore &files, const std::string &path);

// The number of the error that a refused file gives.
int SequencerErrorFor(const Refusal &refusal);

} // namespace velluto
