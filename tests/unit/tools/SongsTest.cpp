// The songs that ship: the player's own reader takes them, they last as long as they should, and no part stumbles over itself.
#include "platform/machine/MachineFiles.h"
#include "platform/sequencer/MidiFile.h"
#include "player/CompilationImage.h"
#include "tools/songs/SongFile.h"
#include "unit/support/NativePath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace velluto {

namespace {

std::vector<songs::Song> AllSongs()
{
    return {songs::LanternWaltz(), songs::NightFerry(), songs::ThirdRail()};
}

TEST(SongsTest, EachIsReadWholeAndLastsHalfAMinuteToAMinute)
{
    MachineFiles files;
    for (const songs::Song &song : AllSongs()) {
        const MidiFile file = ReadMidiFile(files, std::string(VELLUTO_SAMPLES "/") + song.file);
        ASSERT_EQ(file.refusal.why, Refusal::Why::None) << song.file;
        EXPECT_GE(file.song.duration, 30 * kSecond) << song.file;
        EXPECT_LE(file.song.duration, 62 * kSecond) << song.file;
    }
}

TEST(SongsTest, NoPartBeginsANoteThatStillSounds)
{
    for (const songs::Song &song : AllSongs()) {
        for (songs::Part part : song.parts) {
            std::ranges::sort(part.line, {}, [](const songs::Note &note) { return std::pair(note.key, note.start); });
            for (std::size_t i = 1; i < part.line.size(); ++i) {
                const songs::Note &before = part.line[i - 1];
                const songs::Note &note = part.line[i];
                EXPECT_TRUE(before.key != note.key || before.start + before.length <= note.start)
                    << song.title << ", " << part.name << ": key " << note.key << " at " << note.start;
            }
        }
    }
}

TEST(SongsTest, OneHasTempoChangesAndOneALoop)
{
    EXPECT_GT(songs::LanternWaltz().tempos.size(), 8U);
    const std::vector<songs::Mark> marks = songs::ThirdRail().marks;
    const auto mark = [&](const char *text) { return std::ranges::find(marks, text, &songs::Mark::text); };
    ASSERT_NE(mark("Loop"), marks.end());
    EXPECT_EQ(mark("Loop")->at, 64); // as the guides tell
    ASSERT_NE(mark("Loop end"), marks.end());
    EXPECT_EQ(mark("Loop end")->at, 192);
}

TEST(SongsTest, AMistakeInTheMusicIsTold)
{
    EXPECT_THROW(static_cast<void>(songs::Melody("c4:3 d4:4 |", 8, 80)), std::runtime_error);
    EXPECT_THROW(static_cast<void>(songs::Melody("h4:4", 8, 80)), std::runtime_error);
    EXPECT_THROW(static_cast<void>(songs::Chords("Xm |", {"x---"}, 80)), std::runtime_error);
}

TEST(SongsTest, TheCompilationFindsThemInTheSamplesBesideIt)
{
    std::ifstream in(VELLUTO_DATA "/c-Velluto.cmp", std::ios::binary);
    const std::string image{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    int index = 0;
    for (const songs::Song &song : AllSongs()) {
        EXPECT_EQ(PathInImage(image, index++), test::Native("samples/" + song.file));
    }
}

} // namespace

} // namespace velluto
