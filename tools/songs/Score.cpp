#include "tools/songs/Score.h"

#include <array>
#include <charconv>
#include <stdexcept>

namespace songs {

namespace {

constexpr int kOctave = 12;
constexpr int kLouder = 16;
constexpr int kSofter = 34;
constexpr int kBeat = 84;

[[noreturn]] void Wrong(std::string_view what, std::string_view where)
{
    throw std::runtime_error(std::string(what) + ": " + std::string(where));
}

std::vector<std::string_view> Words(std::string_view text, char between)
{
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::size_t end = text.find(between);
        if (end != 0) {
            words.push_back(text.substr(0, end));
        }
        text = end == std::string_view::npos ? "" : text.substr(end + 1);
    }
    return words;
}

int Key(std::string_view name)
{
    constexpr std::array<int, 7> kSteps{9, 11, 0, 2, 4, 5, 7}; // a to g
    if (name.size() < 2 || name.front() < 'a' || name.front() > 'g' || name.back() < '0' || name.back() > '8') {
        Wrong("no note", name);
    }
    const int sign = name[1] == '#' ? 1 : (name.size() > 2 && name[1] == 'b' ? -1 : 0);
    return kSteps.at(static_cast<std::size_t>(name.front() - 'a')) + sign + kOctave * (name.back() - '0' + 1);
}

// How a symbol is played: the root where a bass has it, its third and fifth above that, and the voicing around middle c.
struct Chord {
    std::string_view symbol;
    std::string_view root;
    int third;
    int fifth;
    std::string_view voicing;
};

constexpr std::array kChords{
    Chord{"G", "g2", 4, 7, "b3+d4+g4"},         Chord{"Em", "e2", 3, 7, "b3+e4+g4"},       Chord{"C", "c3", 4, 7, "c4+e4+g4"},
    Chord{"Cm", "c3", 3, 7, "c4+eb4+g4"},       Chord{"D7", "d3", 4, 7, "c4+d4+f#4"},      Chord{"Bm", "b2", 3, 7, "b3+d4+f#4"},
    Chord{"Am7", "a2", 3, 7, "c4+e4+g4"},       Chord{"Am", "a2", 3, 7, "c4+e4+a4"},       Chord{"B7", "b2", 4, 7, "b3+d#4+a4"},
    Chord{"A7", "a2", 4, 7, "c#4+e4+g4"},       Chord{"Am9", "a2", 3, 7, "g3+b3+c4+e4"},   Chord{"Dm9", "d2", 3, 7, "f3+a3+c4+e4"},
    Chord{"G13", "g2", 4, 7, "f3+a3+b3+e4"},    Chord{"Cmaj9", "c3", 4, 7, "e3+g3+b3+d4"}, Chord{"Fmaj7", "f2", 4, 7, "e3+a3+c4"},
    Chord{"Bm7b5", "b2", 3, 6, "f3+a3+b3+d4"},  Chord{"E7b9", "e2", 4, 7, "f3+g#3+b3+d4"}, Chord{"A7b13", "a2", 4, 7, "g3+c#4+f4"},
    Chord{"Em9", "e2", 3, 7, "g3+b3+d4+f#4"},   Chord{"A13", "a2", 4, 7, "g3+c#4+f#4"},    Chord{"G6", "g2", 4, 7, "g3+b3+d4+e4"},
    Chord{"B7#9", "b2", 4, 7, "a3+d#4+f#4+d5"}, Chord{"Cmaj7", "c3", 4, 7, "g3+b3+c4+e4"}, Chord{"Bm7", "b2", 3, 7, "f#3+a3+b3+d4"},
};

const Chord &FindChord(std::string_view symbol)
{
    for (const Chord &chord : kChords) {
        if (chord.symbol == symbol) {
            return chord;
        }
    }
    Wrong("no chord", symbol);
}

int Degree(const Chord &chord, char figure)
{
    switch (figure) {
    case '1':
        return 0;
    case '3':
        return chord.third;
    case '5':
        return chord.fifth;
    case '8':
        return kOctave;
    default:
        Wrong("no figure", std::string_view(&figure, 1));
    }
}

// Calls hit(start, length, letter, chord) for each letter of the rhythms that begins something.
template <class Hit>
void EachHit(std::string_view symbols, const std::vector<std::string_view> &rhythms, Hit hit)
{
    std::string plain;
    for (const char c : symbols) {
        plain += c == ' ' ? "" : std::string(1, c);
    }
    int start = 0;
    std::size_t number = 0;
    for (const std::string_view bar : Words(plain, '|')) {
        const std::vector<std::string_view> halves = Words(bar, ',');
        const std::string_view rhythm = rhythms.at(number++ % rhythms.size());
        for (std::size_t at = 0; at < rhythm.size(); ++at) {
            if (rhythm[at] == '.' || rhythm[at] == '-') {
                continue;
            }
            const std::size_t end = std::min(rhythm.find_first_not_of('-', at + 1), rhythm.size());
            hit(start + static_cast<int>(at), static_cast<int>(end - at), rhythm[at],
                FindChord(halves.at(at * halves.size() / rhythm.size())));
        }
        start += static_cast<int>(rhythm.size());
    }
}

void Add(Line &line, std::string_view names, Note note)
{
    for (const std::string_view name : Words(names, '+')) {
        note.key = Key(name);
        line.push_back(note);
    }
}

} // namespace

Line Melody(std::string_view text, int bar, int velocity)
{
    Line line;
    int now = 0;
    for (const std::string_view word : Words(text, ' ')) {
        if (word == "|") {
            if (now % bar != 0) {
                Wrong("a bar that does not come out", text);
            }
            continue;
        }
        const std::size_t colon = word.find(':');
        int length = 0;
        if (colon == std::string_view::npos ||
            std::from_chars(word.data() + colon + 1, word.data() + word.size(), length).ec != std::errc{}) {
            Wrong("no length", word);
        }
        if (word.front() != 'r') {
            Add(line, word.substr(0, colon), {now, length, 0, velocity + (now % bar == 0 ? 8 : (now % 4 == 0 ? 3 : 0))});
        }
        now += length;
    }
    return line;
}

Line Chords(std::string_view symbols, const std::vector<std::string_view> &rhythms, int velocity)
{
    Line line;
    EachHit(symbols, rhythms, [&](int start, int length, char letter, const Chord &chord) {
        Add(line, chord.voicing, {start, length, 0, velocity + (letter == 'X' ? kLouder : 0)});
    });
    return line;
}

Line Bass(std::string_view symbols, const std::vector<std::string_view> &rhythms, int velocity)
{
    Line line;
    EachHit(symbols, rhythms, [&](int start, int length, char letter, const Chord &chord) {
        line.push_back({start, length, Key(chord.root) + Degree(chord, letter), velocity + (start % 8 == 0 ? 6 : 0)});
    });
    return line;
}

Line Beat(int key, const std::vector<std::string_view> &rhythms, int bars)
{
    Line line;
    int start = 0;
    for (int bar = 0; bar < bars; ++bar) {
        for (const char letter : rhythms.at(static_cast<std::size_t>(bar) % rhythms.size())) {
            if (letter != '.') {
                line.push_back({start, 1, key, kBeat + (letter == 'X' ? kLouder : (letter == 'o' ? -kSofter : 0))});
            }
            ++start;
        }
    }
    return line;
}

Line At(int start, Line line)
{
    for (Note &note : line) {
        note.start += start;
    }
    return line;
}

Line Together(const std::vector<Line> &lines)
{
    Line all;
    for (const Line &line : lines) {
        all.insert(all.end(), line.begin(), line.end());
    }
    return all;
}

} // namespace songs
