// The keys of the keyboard as numbers: which are black, how high they are, which notes they reach. Key 0 is a C.
#pragma once

#include <array>

namespace velluto {

inline constexpr int kKeyCount = 61;
inline constexpr int kNotesPerOctave = 12;

// The span that the 61 keys reach over all octave shifts, as MIDI note numbers.
inline constexpr int kLowestNote = 12;
inline constexpr int kHighestNote = 108;
inline constexpr int kNoteCount = kHighestNote - kLowestNote + 1;

inline constexpr int kWhiteKeyColor = 0xFFFFFF;
inline constexpr int kBlackKeyColor = 0x000000;

// Twips. From the edge on, the pointer is in the strip at the lower end of a key, where a sounding key is left.
inline constexpr int kWhiteKeyHeight = 1404;
inline constexpr int kBlackKeyHeight = 972;
inline constexpr int kWhiteKeyEdge = 1368;
inline constexpr int kBlackKeyEdge = 936;

// key counts from 0; a note number serves as well, since both count from a C.
[[nodiscard]] constexpr bool IsBlackKey(int key)
{
    constexpr std::array<bool, kNotesPerOctave> kBlack{false, true, false, true, false, false, true, false, true, false, true, false};
    return kBlack.at(static_cast<std::size_t>(key % kNotesPerOctave));
}

[[nodiscard]] constexpr int PlainColor(int key)
{
    return IsBlackKey(key) ? kBlackKeyColor : kWhiteKeyColor;
}

[[nodiscard]] constexpr bool IsOnScreen(int keyIndex)
{
    return keyIndex >= 0 && keyIndex < kKeyCount;
}

// A flag for each note of the span.
class NoteFlags {
public:
    // false for notes outside the span.
    [[nodiscard]] bool operator[](int note) const { return Reaches(note) && flags_.at(static_cast<std::size_t>(note - kLowestNote)) != 0; }
    // Notes outside the span are left out.
    void Set(int note, bool flag)
    {
        if (Reaches(note)) {
            flags_.at(static_cast<std::size_t>(note - kLowestNote)) = flag ? 1 : 0;
        }
    }
    void Clear() { flags_.fill(0); }
    // Element note - kLowestNote, 0 or 1.
    [[nodiscard]] const std::array<unsigned char, kNoteCount> &Bytes() const { return flags_; }

private:
    [[nodiscard]] static bool Reaches(int note) { return note >= kLowestNote && note <= kHighestNote; }
    std::array<unsigned char, kNoteCount> flags_{};
};

} // namespace velluto
