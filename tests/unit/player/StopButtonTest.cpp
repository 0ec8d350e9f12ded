// The stop button: what it gives back, and when it opens the file anew.
#include "player/Transport.h"

#include "unit/player/PlayerRun.h"

namespace velluto::test {
namespace {

using namespace std::string_literals;

class StopButton : public PlayerRun {
protected:
    // Three files in the folder d: a, b, c with 100, 60 and 40 units; and as a compilation.
    StopButton()
    {
        Song("d/a.mid", 100);
        Song("d/b.mid", 60);
        Song("d/c.mid", 40);
        WriteText("c-mix.cmp", "\1" + At("d") + "\0a.mid\0b.mid\0c.mid\0\xFF"s);
    }
    void StartWithCompilation()
    {
        Start();
        Click(form().ListComp, 0);
    }
};

TEST_F(StopButton, RewindsByTheEventThatFollows)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Set(form().HScrollStart, 10);
    Transport(TransportButton::Play);
    Clock(1000);
    Transport(TransportButton::Stop);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(Buttons(), "1110000");
    EXPECT_EQ(form().Label1.caption.Get(), "0:00");
    EXPECT_FALSE(form().Timer1.enabled);
    EXPECT_FALSE(session.ticks.Running());
    EXPECT_TRUE(form().CommAddAll.enabled);
    EXPECT_TRUE(form().CommAdd.enabled);
    // The device reports the end of the play once the handler has returned.
    EXPECT_EQ(device().From(), 10);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "10 (10%)");
}

TEST_F(StopButton, OfAPausedFileDoesItAllWithoutAnEventThatFollows)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Transport(TransportButton::Play);
    Clock(2000);
    Transport(TransportButton::Pause);
    EXPECT_FALSE(form().CommAdd.enabled);
    EXPECT_GT(form().Line1.X1(), 30);
    Transport(TransportButton::Stop);
    EXPECT_TRUE(form().CommAdd.enabled);
    EXPECT_TRUE(form().CommAddAll.enabled);
    EXPECT_EQ(form().Line1.X1(), 30);
    EXPECT_EQ(form().Label1.caption.Get(), "0:00");
}

TEST_F(StopButton, OpensTheFileOfACompilationAnew)
{
    StartWithCompilation();
    Click(form().ListMidiCorr, 1);
    Transport(TransportButton::Play);
    Clock(1000);
    Song("d/b.mid", 70); // changed meanwhile
    Transport(TransportButton::Stop);
    EXPECT_EQ(device().Command(), "open");
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().Position(), 0);
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "70");
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - b.mid");
}

TEST_F(StopButton, OpensNothingAnewWhereTheFileCameFromTheFolder)
{
    StartWithPanel();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    Click(form().ListMidiSel, 0);
    ASSERT_EQ(form().ListMidiCorr.ListIndex(), 1);
    Transport(TransportButton::Play);
    Transport(TransportButton::Stop);
    EXPECT_EQ(device().Command(), "stop");
}

TEST_F(StopButton, OpensNothingAnewWhereTheCompilationHasNoRowLeft)
{
    StartWithCompilation();
    DoubleClick(form().ListMidiCorr, 0); // leaves the button that removes on
    Press(form().CommRimAll);
    ASSERT_EQ(form().ListMidiCorr.ListIndex(), -1);
    Transport(TransportButton::Stop);
    EXPECT_EQ(device().Command(), "stop");
    EXPECT_EQ(device().Mode(), 525);
}

} // namespace
} // namespace velluto::test
