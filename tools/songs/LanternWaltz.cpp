// A waltz in G that breathes: a slow beginning, a dance that hurries in its middle, and an end that stands still.
#include "tools/songs/SongFile.h"

namespace songs {

namespace {

constexpr int kBar = 12;
constexpr int kDance = 4 * kBar;
constexpr int kMiddle = kDance + 16 * kBar;
constexpr int kAgain = kMiddle + 8 * kBar;
constexpr int kEnd = kAgain + 8 * kBar;

constexpr std::string_view kFirst = "G | Em | C | D7 | Bm | Em | Am7 | D7 |";
constexpr std::string_view kSecond = "G | Em | C | D7 | Bm | C | D7 | G |";
constexpr std::string_view kMinor = "Em | B7 | Em | Em | Am | Em | A7 | D7 |";

constexpr std::string_view kIntroTune = "b4:4 d5:4 g5:4 | f#5:8 e5:4 | c5:4 e5:4 a5:4 | f#5:12 |";
constexpr std::string_view kFirstTune =
    "b4:8 d5:4 | g5:8 f#5:4 | e5:8 c5:4 | d5:10 r:2 | d5:8 f#5:4 | b5:8 a5:4 | g5:4 e5:4 c5:4 | a4:8 d5:4 |";
constexpr std::string_view kSecondTune =
    "b4:8 d5:4 | g5:8 a5:4 | b5:4 a5:4 g5:4 | f#5:10 r:2 | f#5:4 g5:4 a5:4 | e5:8 g5:4 | f#5:4 e5:4 f#5:4 | g5:12 |";
constexpr std::string_view kMinorTune =
    "r:2 e5:2 g5:2 b5:2 a5:2 g5:2 | f#5:8 d#5:4 | r:2 e5:2 g5:2 b5:2 c6:2 b5:2 | g5:12 | r:2 a5:2 c6:2 b5:2 a5:2 g5:2 | e5:8 g5:4 | "
    "a5:4 g5:4 e5:4 | d5:4 e5:4 f#5:4 |";
constexpr std::string_view kEndTune = "e5:8 g5:4 | eb5:8 g5:4 | d5:4 b4:4 d5:4 | g5:12 |";
constexpr std::string_view kBelow = "g4:8 b4:4 | b4:8 d5:4 | g5:4 e5:4 e5:4 | d5:10 r:2 | d5:4 d5:4 f#5:4 | c5:8 e5:4 | "
                                    "c5:4 c5:4 d5:4 | b4:12 |";

// The dance's chords from the first bar of the dance to the end's, played by a hand that has a rhythm for each two bars.
Line Danced(Line (*play)(std::string_view, const std::vector<std::string_view> &, int), const std::vector<std::string_view> &rhythms,
            int velocity)
{
    return Together({At(kDance, play(kFirst, rhythms, velocity)), At(kDance + 8 * kBar, play(kSecond, rhythms, velocity)),
                     At(kMiddle, play(kMinor, rhythms, velocity)), At(kAgain, play(kSecond, rhythms, velocity))});
}

} // namespace

Song LanternWaltz()
{
    Song song{"Lantern Waltz.mid", "Lantern Waltz", 3, {}, {}, 0, {}};
    song.tempos = {{0, 92},
                   {3 * kBar, 72},
                   {kDance, 156},
                   {kMiddle, 160},
                   {kMiddle + 2 * kBar, 166},
                   {kMiddle + 4 * kBar, 172},
                   {kMiddle + 7 * kBar, 140},
                   {kAgain, 158},
                   {kEnd, 126},
                   {kEnd + kBar, 104},
                   {kEnd + 2 * kBar, 84},
                   {kEnd + 3 * kBar, 60}};
    song.marks = {{0, "Intro"}, {kDance, "Dance"}, {kMiddle, "Middle"}, {kAgain, "Dance again"}, {kEnd, "End"}};
    song.parts.push_back({"Accordion", 4, 21, 96, 58, 50,
                          Together({Melody(kIntroTune, kBar, 80), At(kDance, Melody(kFirstTune, kBar, 88)),
                                    At(kDance + 8 * kBar, Melody(kSecondTune, kBar, 90)), At(kAgain, Melody(kSecondTune, kBar, 92)),
                                    At(kEnd, Melody(kEndTune, kBar, 82))})});
    song.parts.push_back(
        {"Clarinet", 6, 71, 94, 76, 60, Together({At(kMiddle, Melody(kMinorTune, kBar, 90)), At(kAgain, Melody(kBelow, kBar, 74))})});
    song.parts.push_back(
        {"Guitar", 3, 25, 84, 48, 40,
         Together({Chords("G | Em | Am | D7 |", {"x-----------"}, 58), Danced(&Chords, {"....x--.x--."}, 60),
                   At(kEnd, Chords("C | Cm | G | G |", {"x---x---x---", "x---x---x---", "x---x---x---", "x-----------"}, 56))})});
    song.parts.push_back(
        {"Strings", 5, 49, 66, 70, 80,
         Together({Chords("G | Em | Am | D7 |", {"x-----------"}, 48), At(kMiddle, Chords(kMinor, {"x-----------"}, 54)),
                   At(kAgain, Chords(kSecond, {"x-----------"}, 50)), At(kEnd, Chords("C | Cm | G | G |", {"x-----------"}, 50))})});
    song.parts.push_back(
        {"Bass", 2, 32, 104, 64, 20,
         Together({Danced(&Bass, {"1------.....", "5------....."}, 84), At(kEnd, Bass("C | Cm | G | G |", {"1-----------"}, 74))})});
    song.parts.push_back({"Brushes", 10, 40, 84, 64, 40,
                          Together({At(kDance, Beat(36, {"x..........."}, 32)), At(kDance, Beat(38, {"....o...o...", "....o...o.o."}, 32)),
                                    At(kDance, Beat(51, {"o...x...x..."}, 32)), At(kEnd + 3 * kBar, Beat(51, {"x"}, 1))})});
    return song;
}

} // namespace songs
