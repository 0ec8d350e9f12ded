// A bossa in A minor: flute, vibraphone, guitar, strings, bass and drums.
#include "tools/songs/SongFile.h"

namespace songs {

namespace {

constexpr int kBar = 16;
constexpr int kIntro = 4 * kBar;
constexpr int kBridge = kIntro + 16 * kBar;
constexpr int kEnd = kBridge + 8 * kBar;
constexpr int kBars = 32;

constexpr std::string_view kIntroChords = "Am9 | Am9 | Dm9 | E7b9 |";
constexpr std::string_view kVerseChords = "Am9 | Am9 | Dm9 | G13 | Cmaj9 | Fmaj7 | Bm7b5 | E7b9 |"
                                          "Am9 | Am9 | Dm9 | G13 | Cmaj9 | Fmaj7 | Bm7b5,E7b9 | Am9 |";
constexpr std::string_view kBridgeChords = "Dm9 | G13 | Cmaj9 | A7b13 | Dm9 | G13 | Bm7b5 | E7b9 |";
constexpr std::string_view kEndChords = "Am9 | Fmaj7 | Bm7b5,E7b9 |";

constexpr std::string_view kVerse = "r:2 e5:4 d5:2 c5:4 b4:4 | e5:10 r:2 a4:2 b4:2 | c5:6 d5:2 e5:4 f5:4 | e5:10 r:2 d5:2 e5:2 | "
                                    "g5:6 e5:2 d5:4 b4:4 | c5:10 r:2 c5:2 d5:2 | f5:6 d5:2 b4:4 a4:4 | g#4:6 b4:2 d5:4 f5:4 | "
                                    "r:2 e5:4 d5:2 c5:4 b4:4 | a4:4 c5:4 e5:4 g5:4 | f5:6 e5:2 d5:4 c5:4 | b4:8 r:4 g4:2 b4:2 | "
                                    "d5:6 e5:2 g5:4 b5:4 | a5:10 r:2 g5:2 f5:2 | e5:4 d5:4 b4:4 g#4:4 | a4:12 r:4 |";
constexpr std::string_view kBridgeTune = "r:4 f5:4 a5:4 f5:4 | e5:6 d5:2 b4:8 | r:4 e5:4 g5:4 e5:4 | f5:6 e5:2 c#5:8 | "
                                         "r:4 d5:4 f5:4 a5:4 | b5:6 a5:2 g5:4 f5:4 | e5:6 f5:2 d5:8 | r:4 e5:4 g#5:4 b5:4 |";
constexpr std::string_view kEndTune = "c6:6 b5:2 a5:4 e5:4 | f5:6 e5:2 c5:8 | d5:4 b4:4 g#4:4 b4:4 | a4:16 |";
constexpr std::string_view kIntroTune = "r:8 e5:2 c5:2 a4:4 | r:16 | r:8 f5:2 d5:2 a4:4 | b4:8 g#4:8 |";
constexpr std::string_view kAnswers =
    "r:16 | r:10 e4:2 g4:2 c5:2 | r:16 | r:10 b4:2 a4:2 g4:2 | r:16 | r:10 a4:2 g4:2 e4:2 | r:16 | r:16 |";

Line Throughout(Line (*play)(std::string_view, const std::vector<std::string_view> &, int), const std::vector<std::string_view> &rhythms,
                int velocity)
{
    return Together({play(kIntroChords, rhythms, velocity), At(kIntro, play(kVerseChords, rhythms, velocity)),
                     At(kBridge, play(kBridgeChords, rhythms, velocity)), At(kEnd, play(kEndChords, rhythms, velocity)),
                     At(kEnd + 3 * kBar, play("Am9 |", {play == &Bass ? "1---------------" : "x---------------"}, velocity))});
}

} // namespace

Song NightFerry()
{
    Song song{
        "Night Ferry.mid", "Night Ferry", 4, {{0, 134}}, {{0, "Intro"}, {kIntro, "Verse"}, {kBridge, "Bridge"}, {kEnd, "End"}}, 0, {}};
    song.parts.push_back({"Flute", 4, 73, 100, 64, 60,
                          Together({At(kIntro, Melody(kVerse, kBar, 88)), At(kBridge, Melody(kBridgeTune, kBar, 94)),
                                    At(kEnd, Melody(kEndTune, kBar, 86))})});
    song.parts.push_back({"Vibraphone", 6, 11, 84, 84, 70,
                          Together({Melody(kIntroTune, kBar, 76), At(kIntro, Melody(kAnswers, kBar, 62)),
                                    At(kIntro + 8 * kBar, Melody(kAnswers, kBar, 66))})});
    song.parts.push_back({"Guitar", 3, 24, 92, 44, 40, Throughout(&Chords, {"x--...x--...x--.", "..x--...x--....."}, 66)});
    song.parts.push_back({"Strings", 5, 48, 70, 70, 80,
                          Together({At(kBridge, Chords(kBridgeChords, {"x---------------"}, 54)),
                                    At(kEnd, Chords("Am9 | Fmaj7 | Bm7b5,E7b9 | Am9 |", {"x-------x-------"}, 52))})});
    song.parts.push_back({"Bass", 2, 32, 104, 64, 20, Throughout(&Bass, {"1-----5-1-----5-"}, 80)});
    song.parts.push_back(
        {"Drums", 10, 0, 90, 64, 40,
         Together({Beat(36, {"x.....o.x.....o."}, kBars - 1), Beat(37, {"x.....x.....x...", "....x.....x....."}, kBars - 1),
                   Beat(42, {"x.o.x.o.x.o.x.o."}, kBars - 1), At(kBridge, Beat(51, {"x...o...x...o..."}, 8)),
                   At(kBridge - kBar, Beat(45, {"............o.xX"}, 1)), At(kEnd + 3 * kBar, Beat(49, {"x"}, 1)),
                   At(kEnd + 3 * kBar, Beat(36, {"X"}, 1))})});
    return song;
}

} // namespace songs
