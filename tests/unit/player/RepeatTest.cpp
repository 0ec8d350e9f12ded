// "Repeat", and what follows the stop mark.
#include "unit/player/SongsRun.h"

namespace velluto::test {
namespace {

using testing::ElementsAre;

class Repeat : public SongsRun {};

TEST_F(Repeat, RepeatOfTheWholeFileRewindsAndStandsStill)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommRep);
    Play();
    Clock(2000);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().From(), 0);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0 (0%)");
    Clock(5000);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(form().CommRep.color, kToggledColor);
}

TEST_F(Repeat, RepeatLoopsAMarkedSectionWithAGap)
{
    StartWithPanel();
    Click(form().ListMidiSel, 2); // 30 units
    Press(form().CommRep);
    Set(form().HScrollStart, 5);
    Set(form().HScrollStop, 15);
    Play();
    Clock(999);
    EXPECT_EQ(device().Mode(), 526);
    Clock(1); // Timer1 sees position 15
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "15 (50%)");
    Clock(199);
    EXPECT_EQ(device().Mode(), 525);
    Clock(1);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(device().Position(), 5);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "5 (16%)");
    EXPECT_EQ(state().TickCount, 0);
    Clock(1200);
    EXPECT_EQ(device().Mode(), 526); // again
}

TEST_F(Repeat, RepeatLoopsASectionThatReachesTheEnd)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommRep);
    Set(form().HScrollStart, 5);
    Play();
    Clock(1500 + 200);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(device().Position(), 5);
}

TEST_F(Repeat, TheStopMarkWithoutRepeatRewinds)
{
    StartWithPanel();
    Click(form().ListMidiSel, 2);
    Set(form().HScrollStart, 5);
    Set(form().HScrollStop, 15);
    Play();
    Clock(1000);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().From(), 5);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "5 (16%)");
    EXPECT_EQ(Buttons(), "1110000");
    Clock(1000);
    EXPECT_EQ(device().Mode(), 525);
}

TEST_F(Repeat, TheStopButtonBeforeTheMarkDoesNotLoop)
{
    StartWithPanel();
    Click(form().ListMidiSel, 2);
    Press(form().CommRep);
    Set(form().HScrollStop, 15);
    Play();
    Clock(500);
    Transport(TransportButton::Stop);
    Clock(5000);
    EXPECT_EQ(device().Mode(), 525);
}

TEST_F(Repeat, RepeatPutsBackTheRowOfTheCompilation)
{
    StartWithCompilation();
    Press(form().CommRep);
    Play();
    Click(form().ListMidiCorr, 1);
    Clock(2000);
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre(0));
    EXPECT_EQ(device().FileName, At("d/a.mid"));
}

TEST_F(Repeat, RepeatPutsBackTheRowOfTheFolder)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommRep);
    Play();
    Click(form().ListMidiSel, 2);
    Clock(2000);
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(0));
}

TEST_F(Repeat, RepeatEndsWithoutThePanel)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommRep);
    Set(form().HScrollStart, 5);
    Play();
    Press(form().CommSel);
    Clock(2000);
    EXPECT_EQ(form().CommRep.color, Button::kPlainColor);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().Position(), 20); // no rewinding either
}

} // namespace
} // namespace velluto::test
