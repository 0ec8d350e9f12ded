// Music written down as text, for make-songs: melodies by the names of their notes, chords by their symbols, rhythms as rows of
// letters. All times and lengths are sixteenth notes; keys are MIDI keys, c4 is 60.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace songs {

struct Note {
    int start = 0;
    int length = 0;
    int key = 0;
    int velocity = 0;
};
using Line = std::vector<Note>;

// "e5:6 c5:2 r:8 | a3+c4:16 |": notes with their lengths, r is a rest, + joins notes of one moment, | must stand where a bar of that
// length ends. Throws std::runtime_error where the text says something else.
[[nodiscard]] Line Melody(std::string_view text, int bar, int velocity);

// One symbol for a bar, or two with a comma for its halves: "Dm9 | Bm7b5,E7b9 |". A rhythm has a letter for each sixteenth of a bar: x
// begins a chord, X a loud one, - holds it, a dot is silence; with several rhythms, bars take them in turn.
[[nodiscard]] Line Chords(std::string_view symbols, const std::vector<std::string_view> &rhythms, int velocity);

// The same with figures for x: 1 is the chord's root, 3 and 5 its third and fifth, 8 the octave.
[[nodiscard]] Line Bass(std::string_view symbols, const std::vector<std::string_view> &rhythms, int velocity);

// The key again and again, as long as bars last: x, X for loud, o for soft.
[[nodiscard]] Line Beat(int key, const std::vector<std::string_view> &rhythms, int bars);

// The line that many sixteenths later.
[[nodiscard]] Line At(int start, Line line);
[[nodiscard]] Line Together(const std::vector<Line> &lines);

} // namespace songs
