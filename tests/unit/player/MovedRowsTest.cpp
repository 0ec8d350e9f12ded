// Rows that were moved while a file played, where "Play all" or "Repeat" goes on at its end.
#include "unit/player/SongsRun.h"

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MovedRows : public SongsRun {
protected:
    void PlayFromTheFolder()
    {
        StartWithPanel();
        Click(form().ListMidiSel, 0);
        Press(form().CommPlayAll);
        Play();
    }
};

TEST_F(MovedRows, PlayAllPutsBackTheRowOfTheFolder)
{
    PlayFromTheFolder();
    Click(form().ListMidiSel, 2);
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(2));
    Clock(2600);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(1));
    EXPECT_EQ(state().PlayingFileRow, 1);
}

TEST_F(MovedRows, TheListsAreLockedAgainBehindTheGap)
{
    PlayFromTheFolder();
    Clock(2200);
    for (Button *button : {&form().CommRim, &form().CommRimAll, &form().CommAdd, &form().CommAddAll}) {
        button->enabled = true;
    }
    Clock(400);
    EXPECT_EQ(device().Mode(), 526);
    for (const Button *button : {&form().CommRim, &form().CommRimAll, &form().CommAdd, &form().CommAddAll}) {
        EXPECT_FALSE(button->enabled) << button->FullName();
    }
}

TEST_F(MovedRows, RepeatPutsBackTheRowOfItsCompilation)
{
    StartWithCompilation();
    Press(form().CommRep);
    Play();
    Click(form().ListMidiCorr, 1);
    Clock(2000);
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre(0));
}

TEST_F(MovedRows, RepeatLeavesTheRowsOfAnotherCompilation)
{
    StartWithCompilation();
    Press(form().CommRep);
    Play();
    Click(form().ListComp, 1);
    Clock(2000);
    EXPECT_THAT(Selected(form().ListMidiCorr), IsEmpty());
    EXPECT_EQ(device().FileName, At("d/a.mid"));
}

} // namespace
} // namespace velluto::test
