// A funk in E minor. Its eight bars between the marks "Loop" and "Loop end" lead back into themselves: they are made to be repeated.
#include "tools/songs/SongFile.h"

namespace songs {

namespace {

constexpr int kBar = 16;
constexpr int kLoop = 4 * kBar;
constexpr int kBreak = kLoop + 8 * kBar;
constexpr int kBack = kBreak + 4 * kBar;
constexpr int kEnd = kBack + 4 * kBar;

constexpr std::string_view kLoopChords = "Em9 | Em9 | A13 | A13 | Em9 | G6 | A13 | B7#9 |";
constexpr std::string_view kBreakChords = "Cmaj7 | Bm7 | Am9 | B7#9 |";

constexpr std::string_view kBassE = "e2:3 r:1 e2:2 g2:2 r:2 a2:2 b2:2 d3:2 | ";
constexpr std::string_view kBassA = "a2:3 r:1 a2:2 c#3:2 r:2 e3:2 f#3:2 e3:2 | ";
constexpr std::string_view kBassG = "g2:3 r:1 g2:2 b2:2 r:2 d3:2 e3:2 d3:2 | ";
constexpr std::string_view kBassB = "b2:3 r:1 b2:2 d#3:2 r:2 f#2:2 a2:2 b2:2 | ";

constexpr std::string_view kTune = "r:2 b4:2 d5:2 e5:2 r:2 g5:3 e5:3 | d5:2 b4:2 a4:2 b4:6 r:4 | r:2 e5:2 g5:2 a5:2 r:2 b5:3 a5:3 | "
                                   "f#5:2 e5:2 c#5:2 e5:6 r:4 | r:2 b4:2 d5:2 e5:2 r:2 g5:3 f#5:3 | e5:2 d5:2 b4:2 d5:6 r:4 | "
                                   "c#5:2 e5:2 g5:2 f#5:4 e5:2 c#5:2 d5:2 | d#5:4 f#5:4 a5:2 b5:2 r:4 |";
constexpr std::string_view kBackTune = "r:2 e5:2 g5:2 b5:2 r:2 d6:3 b5:3 | a5:2 g5:2 e5:2 g5:6 r:4 | r:2 a5:2 b5:2 c#6:2 r:2 e6:3 c#6:3 | "
                                       "b5:2 a5:2 f#5:2 d#5:6 f#5:4 |";
constexpr std::string_view kBreakTune = "e5:8 g5:8 | f#5:8 d5:8 | e5:8 c5:8 | d#5:8 f#5:4 a5:4 |";

Line BassLine()
{
    const auto bars = [](const std::vector<std::string_view> &words) {
        std::string text;
        for (const std::string_view word : words) {
            text += word;
        }
        return Melody(text, kBar, 90);
    };
    return Together({bars({kBassE, kBassE, kBassE, kBassB}),
                     At(kLoop, bars({kBassE, kBassE, kBassA, kBassA, kBassE, kBassG, kBassA, kBassB})),
                     At(kBreak, Bass(kBreakChords, {"1-----1-5---8---"}, 86)), At(kBack, bars({kBassE, kBassE, kBassA, kBassB})),
                     At(kEnd, Melody("e2:3 r:1 e2:3 r:5 d2:2 d#2:2 | e2:16 |", kBar, 100))});
}

Line Drums()
{
    constexpr int kGroove = kEnd / kBar; // bars with a beat, the break among them
    return Together({Beat(36, {"X..x..x...x.....", "X..x..x...x..x.."}, kGroove), At(kBar, Beat(38, {"....X..o.o..X..o"}, kGroove - 1)),
                     Beat(42, {"x.oox.oox.oox.o."}, kGroove), Beat(46, {"..............x."}, kGroove),
                     At(kLoop - kBar, Beat(45, {"..........x.x.xX"}, 1)), At(kLoop, Beat(49, {"x"}, 1)), At(kBreak, Beat(49, {"x"}, 1)),
                     At(kBreak, Beat(54, {"....x.......x..."}, 4)), At(kBack, Beat(49, {"x"}, 1)),
                     At(kEnd, Beat(36, {"X...X.......x.x.", "X..............."}, 2)), At(kEnd, Beat(38, {"............X.X."}, 1)),
                     At(kEnd + kBar, Beat(49, {"X"}, 1))});
}

} // namespace

Song ThirdRail()
{
    Song song{"Third Rail.mid", "Third Rail", 4, {{0, 104}}, {{0, "Intro"}, {kLoop, "Loop"}, {kBreak, "Loop end"}, {kEnd, "End"}}, 16, {}};
    const std::string_view loopRhythm = "..x-..x.....x-..";
    song.parts.push_back({"Saxophone", 4, 66, 98, 64, 50,
                          Together({At(kLoop, Melody(kTune, kBar, 92)), At(kBack, Melody(kBackTune, kBar, 96)),
                                    At(kEnd, Melody("e5:3 r:1 g5:3 r:5 d5:2 d#5:2 | e5:16 |", kBar, 98))})});
    song.parts.push_back(
        {"Electric piano", 3, 4, 92, 50, 40,
         Together({At(2 * kBar, Chords("Em9 | B7#9 |", {loopRhythm}, 66)), At(kLoop, Chords(kLoopChords, {loopRhythm}, 68)),
                   At(kBack, Chords("Em9 | Em9 | A13 | B7#9 |", {loopRhythm}, 72)),
                   At(kEnd, Chords("Em9 | Em9 |", {"X--.X--.....x-x-", "X---------------"}, 76))})});
    song.parts.push_back({"Muted guitar", 6, 28, 74, 84, 30,
                          Together({At(kLoop, Chords(kLoopChords, {"....x.x.....x.xx"}, 50)),
                                    At(kBack, Chords("Em9 | Em9 | A13 | B7#9 |", {"....x.x.....x.xx"}, 52))})});
    song.parts.push_back(
        {"Organ", 5, 16, 78, 74, 60,
         Together({At(kBreak, Chords(kBreakChords, {"x---------------"}, 60)), At(kBreak, Melody(kBreakTune, kBar, 84))})});
    song.parts.push_back({"Bass", 2, 33, 106, 64, 10, BassLine()});
    song.parts.push_back({"Drums", 10, 0, 98, 64, 30, Drums()});
    return song;
}

} // namespace songs
