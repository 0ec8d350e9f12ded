// What is added to a compilation and removed from it.
#include "player/CompilationRows.h"
#include "player/Compilations.h"

#include "unit/player/CompilationRun.h"

namespace velluto::test {
namespace {

using CompilationEdits = CompilationRun;

TEST_F(CompilationEdits, AllFilesOfAFolderAreAddedInTheOrderOfTheirNames)
{
    Song("d/b.mid", 50);
    Song("d/A.MID", 50, 7);
    Song("d/c.Mid", 50);
    StartWithPanel();
    NewCompilation("mix");
    Press(form().CommAddAll);
    EXPECT_EQ(form().ListMidiCorr.Rows(), (Rows{"A.MID   (7)", "b.mid   (3)", "c.Mid   (3)"}));
    EXPECT_EQ(state().image, Image({"A.MID", "b.mid", "c.Mid"}));
    EXPECT_TRUE(state().CompilationDirty);
    EXPECT_TRUE(form().CommRimAll.enabled);
}

TEST_F(CompilationEdits, FilesOfAnotherFolderSplitTheGroups)
{
    Song("d/a.mid", 50);
    Song("d/c.mid", 50);
    Song("e/b.mid", 50);
    StartWithPanel();
    NewCompilation("mix");
    Press(form().CommAddAll);
    Do("set frmMIDIPlayer DirMidiSel " + At("e"));
    Press(form().CommAddAll);
    EXPECT_EQ(form().ListMidiCorr.Rows(), (Rows{"a.mid   (3)", "b.mid   (3)", "c.mid   (3)"}));
    EXPECT_EQ(state().image, "\1" + At("d") + "\0a.mid\0\1"s + At("e") + "\0b.mid\0\1"s + At("d") + "\0c.mid\0\xFF"s);
    EXPECT_EQ(CompilationItemPath(form(), 1), At("e/b.mid"));
}

TEST_F(CompilationEdits, AFileAddedTwiceStandsThereTwice)
{
    Song("d/a.mid", 50);
    StartWithPanel();
    NewCompilation("mix");
    Press(form().CommAddAll);
    Press(form().CommAddAll);
    EXPECT_EQ(state().image, Image({"a.mid", "a.mid"}));
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 2);
}

TEST_F(CompilationEdits, AnEqualNameOfAnotherFolderGoesBehind)
{
    Song("d/a.mid", 50, 1);
    Song("e/A.mid", 50, 2);
    StartWithPanel();
    NewCompilation("mix");
    Press(form().CommAddAll);
    Do("set frmMIDIPlayer DirMidiSel " + At("e"));
    Press(form().CommAddAll);
    EXPECT_EQ(form().ListMidiCorr.Rows(), (Rows{"a.mid   (1)", "A.mid   (2)"}));
}

TEST_F(CompilationEdits, ANameWithABracketIsReadToItsLastOne)
{
    Song("d/a (1).mid", 50);
    Song("d/a (2).mid", 50);
    StartWithPanel();
    NewCompilation("mix");
    Press(form().CommAddAll);
    EXPECT_EQ(form().ListMidiCorr.Rows(), (Rows{"a (1).mid   (3)", "a (2).mid   (3)"}));
}

TEST_F(CompilationEdits, AddTakesTheFirstRunOfSelectedRowsOnly)
{
    for (const char *name : {"a.mid", "b.mid", "c.mid", "e.mid", "f.mid"}) {
        Song("d/"s + name, 50);
    }
    StartWithPanel();
    NewCompilation("mix");
    Click(form().ListMidiSel, 1);
    CtrlClick(form().ListMidiSel, 2);
    CtrlClick(form().ListMidiSel, 4);
    EXPECT_TRUE(form().CommAdd.enabled);
    Press(form().CommAdd);
    EXPECT_EQ(state().image, Image({"b.mid", "c.mid"}));
    EXPECT_TRUE(state().CompilationDirty);
    EXPECT_FALSE(form().CommRimAll.enabled); // that is for a click on the list
    Click(form().ListMidiCorr, 0);
    EXPECT_TRUE(form().CommRimAll.enabled);
}

TEST_F(CompilationEdits, ALongFolderAddedToAnotherComesOutInOrder)
{
    constexpr int kFiles = 300;
    for (int i = 0; i < kFiles; ++i) {
        Song("d/x" + std::to_string(1000 + i) + ".mid", 0, 1);
        Song("e/X" + std::to_string(1000 + i) + "b.mid", 0, 2);
    }
    StartWithPanel();
    NewCompilation("mix");
    Press(form().CommAddAll);
    Do("set frmMIDIPlayer DirMidiSel " + At("e"));
    Press(form().CommAddAll);
    ASSERT_EQ(form().ListMidiCorr.ListCount(), 2 * kFiles);
    for (int i = 0; i < kFiles; ++i) {
        EXPECT_EQ(form().ListMidiCorr.Row(2 * i), "x" + std::to_string(1000 + i) + ".mid   (1)");
        EXPECT_EQ(form().ListMidiCorr.Row(2 * i + 1), "X" + std::to_string(1000 + i) + "b.mid   (2)");
    }
    EXPECT_EQ(CompilationItemPath(form(), 3), At("e/X1001b.mid"));
}

TEST_F(CompilationEdits, AddingToAListThatAMissingFileCutShortKeepsTheRest)
{
    Compilation("mix", {"a.mid", "b.mid", "c.mid"});
    Start();
    std::filesystem::remove(At("d/b.mid"));
    Click(form().ListComp, 0);
    Song("e/ab.mid", 50);
    Press(form().CommSel);
    Do("set frmMIDIPlayer DirMidiSel " + At("e"));
    Press(form().CommAddAll);
    // Behind the one row that is shown comes the end of the image.
    EXPECT_EQ(state().image, "\1" + At("d") + "\0a.mid\0b.mid\0c.mid\0\1"s + At("e") + "\0ab.mid\0\xFF"s);
    EXPECT_EQ(form().ListMidiCorr.Rows(), Rows{"a.mid   (3)"});
}

TEST_F(CompilationEdits, AddingWithAFolderMissingTellsOfItOnce)
{
    WriteText("c-mix.cmp", "\1/no such folder\0a.mid\0\xFF"s);
    Song("d/b.mid", 50);
    Song("d/c.mid", 50);
    StartWithPanel();
    Click(form().ListComp, 0);
    session.face.boxes.clear();
    form().ListMidiCorr.AddItem("a.mid   (1)");
    Press(form().CommAddAll);
    EXPECT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(state().image, "\1/no such folder\0a.mid\0\1"s + At("d") + "\0b.mid\0c.mid\0\xFF"s);
}

TEST_F(CompilationEdits, RemoveTakesTheFirstRunOfSelectedRowsOnly)
{
    Compilation("mix", {"a.mid", "b.mid", "c.mid", "e.mid", "f.mid"});
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    CtrlClick(form().ListMidiCorr, 2);
    CtrlClick(form().ListMidiCorr, 4);
    EXPECT_TRUE(form().CommRim.enabled);
    Press(form().CommRim);
    EXPECT_EQ(form().ListMidiCorr.Rows(), (Rows{"a.mid   (3)", "e.mid   (3)", "f.mid   (3)"}));
    EXPECT_EQ(state().image, Image({"a.mid", "e.mid", "f.mid"}));
    EXPECT_FALSE(form().CommRim.enabled);
    EXPECT_TRUE(state().CompilationDirty);
    // The file that was open is closed.
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_EQ(Buttons(), "0000000");
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "0");
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER");
}

TEST_F(CompilationEdits, RemovingAllRowsLeavesAnEmptyFile)
{
    Compilation("mix", {"a.mid", "b.mid"});
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 0);
    ShiftClick(form().ListMidiCorr, 1);
    Press(form().CommRim);
    EXPECT_EQ(state().image, "");
    Do("close frmMIDIPlayer");
    EXPECT_EQ(ReadText("c-mix.cmp"), "");
    EXPECT_TRUE(std::filesystem::exists(At("c-mix.cmp")));
}

TEST_F(CompilationEdits, RemoveHitsALongerNameThatStandsEarlier)
{
    Compilation("mix", {"my b.mid", "b.mid"});
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    Press(form().CommRim);
    EXPECT_EQ(form().ListMidiCorr.Rows(), Rows{"my b.mid   (3)"});
    EXPECT_EQ(state().image, Image({"my", "b.mid"}));
}

TEST_F(CompilationEdits, RemoveWhileAFilePlaysLeavesTheDeviceAlone)
{
    Compilation("mix", {"a.mid", "b.mid"});
    Start();
    Click(form().ListComp, 0);
    DoubleClick(form().ListMidiCorr, 0); // does not lock the buttons
    ASSERT_EQ(device().Mode(), 526);
    form().CommRim.enabled = true;
    Press(form().CommRim);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - a.mid");
    EXPECT_EQ(form().ListMidiCorr.Rows(), Rows{"b.mid   (3)"});
}

TEST_F(CompilationEdits, RemoveWithoutASelectedRowOnlyCountsAsAChange)
{
    Compilation("mix", {"a.mid"});
    Start();
    Click(form().ListComp, 0);
    form().CommRim.enabled = true;
    Press(form().CommRim);
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 1);
    EXPECT_TRUE(state().CompilationDirty);
    EXPECT_FALSE(form().CommRim.enabled);
}

TEST_F(CompilationEdits, RemoveAllNeedsAName)
{
    Compilation("mix", {"a.mid", "b.mid"});
    Start();
    Click(form().ListComp, 0);
    Press(form().CommRimAll);
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 0);
    EXPECT_EQ(state().image, "");
    EXPECT_FALSE(form().CommRimAll.enabled);
    EXPECT_TRUE(state().CompilationDirty);

    Do("type frmMIDIPlayer Text2 \"\"");
    state().CompilationDirty = false;
    form().CommRimAll.enabled = true;
    state().image = "i";
    Press(form().CommRimAll);
    EXPECT_EQ(state().image, "i");
    EXPECT_FALSE(state().CompilationDirty);
}

TEST_F(CompilationEdits, ChangesAreSavedAtTheEndOfTheWindow)
{
    Song("d/a.mid", 50);
    StartWithPanel();
    NewCompilation("mix");
    Press(form().CommAddAll);
    Do("exit");
    EXPECT_EQ(ReadText("c-mix.cmp"), Image({"a.mid"}));
}

} // namespace
} // namespace velluto::test
