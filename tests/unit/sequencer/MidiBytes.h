// MIDI files made byte by byte, for the tests of the reader and of what plays the files.
#pragma once

#include "app/Language.h"
#include "platform/sequencer/MidiFile.h"
#include "player/SequencerTexts.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace velluto::test {

using Bytes = std::vector<std::uint8_t>;

inline void Append(Bytes &bytes, const Bytes &more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

inline Bytes Word(std::size_t value)
{
    return {static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

inline Bytes Chunk(const std::string &name, const Bytes &content)
{
    Bytes bytes(name.begin(), name.end());
    Append(bytes, Word(content.size() >> 16));
    Append(bytes, Word(content.size()));
    Append(bytes, content);
    return bytes;
}

inline Bytes Header(std::size_t format, std::size_t tracks, std::size_t division)
{
    Bytes content = Word(format);
    Append(content, Word(tracks));
    Append(content, Word(division));
    return Chunk("MThd", content);
}

// A file of these tracks, each the bytes of its events.
inline Bytes File(std::size_t format, std::size_t division, const std::vector<Bytes> &tracks)
{
    Bytes bytes = Header(format, tracks.size(), division);
    for (const Bytes &track : tracks) {
        Append(bytes, Chunk("MTrk", track));
    }
    return bytes;
}

inline MidiFile Read(const Bytes &bytes)
{
    return ReadMidiFile(SharedBytes(bytes));
}

// An end of track so many ticks, up to 16383, after what went before.
inline Bytes EndAfter(unsigned ticks)
{
    return {static_cast<std::uint8_t>(0x80 | ticks >> 7), static_cast<std::uint8_t>(ticks & 0x7F), 0xFF, 0x2F, 0x00};
}

// Why the file is refused, in English; empty where it is not.
inline std::string WordsOf(const MidiFile &file)
{
    return Sentence(file.refusal, kEnglishBase);
}

} // namespace velluto::test
