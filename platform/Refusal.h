// Why the sequencer refuses a file or a command. Used by the reader of MIDI files and by all sequencers; the player has the
// sentences that tell the user.
#pragma once

#include <cstdint>
#include <string>

namespace velluto {

struct Refusal {
    // N and M stand for the numbers that go with a reason.
    enum class Why : std::uint8_t {
        None,
        UnknownCommand,
        NoMemory,
        NoThread,
        NoFileOpen,
        NotFound,
        NotReadable,
        TooLarge, // more than N MB
        NoMidiFile,
        HeaderShort,
        UnknownFormat, // N
        CountOfTracks, // format N with M tracks
        NoTicks,
        NoFrameLength, // or an unusual one
        TooManyTracks, // more than N
        TrackShort,    // the chunk of track N, from 1, is longer than the file
        TrackMissing,  // track N, from 1, of M
        SecondHeader,
        // In track N, from 1:
        EndsInEvent,   // the track's bytes are used up within an event
        NumberTooLong, // a variable-length number of more than four bytes
        NoStatus,      // a data byte where no event came before whose status it could share
        UnknownStatus, // a status byte that belongs on a cable and not in a file
        HighData,      // a meta event of a type above 127
        BadTempo,      // a tempo that is not three bytes long, or 0
        BadEnd,        // an end of track that is not empty
        EndMissing,    // the bytes are used up, and no end of track has come
        EndEarly,      // bytes behind the end of track
        // In the song:
        TooManyEvents, // more than N
        TooLong,
        // Another device's reason, in its own words.
        Other,
    };

    Why why = Why::None;
    std::uint64_t n = 0;
    std::uint64_t m = 0;
    std::string words = {};

    explicit operator bool() const { return why != Why::None; }
};

} // namespace velluto
